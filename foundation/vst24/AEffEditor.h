#pragma once

#include "VstStructures.h"

class AudioEffect;

/// The plug-in's window as the host drives it. Override what the editor has.
///
/// The effect that holds an editor deletes it; an editor that should live on is taken away first
/// with `setEditor(nullptr)`.
/// Thread: user interface, which may be another thread than the host's main one.
class AEffEditor {
public:
    explicit AEffEditor(AudioEffect* owner = nullptr) : effect(owner) {}
    virtual ~AEffEditor() = default;

    AEffEditor(const AEffEditor&) = delete;
    AEffEditor& operator=(const AEffEditor&) = delete;

    virtual AudioEffect* getEffect() { return effect; }

    /// Points `*rect` at the window's size. True when there is one; it must then stay valid for the
    /// effect's life, and hosts ask before as well as after `open`.
    virtual bool getRect(ERect** rect) {
        *rect = nullptr;
        return false;
    }

    /// Opens the window inside the host's. An override calls this one to record the parent and
    /// ignores its false.
    /// @param parent  X11 window number or HWND
    virtual bool open(void* parent) {
        systemWindow = parent;
        return false;
    }

    virtual void close() { systemWindow = nullptr; }
    virtual bool isOpen() { return systemWindow != nullptr; }

    /// Called some 10 to 30 times a second while open.
    virtual void idle() {}

    /// @return whether the key was used; the host keeps the others
    virtual bool onKeyDown(VstKeyCode& /*keyCode*/) { return false; }
    virtual bool onKeyUp(VstKeyCode& /*keyCode*/) { return false; }
    virtual bool onWheel(float /*distance*/) { return false; }

    /// @param mode  a `VstKnobMode`
    virtual bool setKnobMode(VstInt32 /*mode*/) { return false; }

protected:
    AudioEffect* effect;
    void* systemWindow = nullptr; // the parent while open
};
