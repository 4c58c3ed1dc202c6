#pragma once

#include "vst24/AEffEditor.h"
#include "vstgui/lib/cframe.h"

namespace VSTGUI {

/// An effect's editor that has a frame.
///
/// The derived class sets `rect`, makes the frame in `open` and closes it in `close`. Window,
/// timers and drawing move in `idle` alone.
///
/// Thread: a host calls one editor from one thread at a time, and may call two editors from two. A
/// timer that `open` starts is this editor's.
class AEffGUIEditor : public AEffEditor, public VSTGUIEditorInterface {
public:
    /// Registers itself with the effect, an `AudioEffectX` or null.
    AEffGUIEditor(void* effect);
    /// Does not close the frame.
    ~AEffGUIEditor() override;

    /// A parameter was changed by someone else.
    virtual void setParameter(int32_t index, float value) {
        (void)index;
        (void)value;
    }

    /// In the window's pixels: `rect` at the frame's scale, or at that of the next one.
    bool getRect(ERect** rect) override;
    /// Stores the window; the result has no meaning.
    bool open(void* window) override;
    /// One turn: events, due timers, dirty views, drawing. A call from inside it does nothing.
    void idle() override;
    bool onKeyDown(VstKeyCode& keyCode) override;
    bool onKeyUp(VstKeyCode& keyCode) override;
    bool onWheel(float distance) override; // at the mouse, wherever that is
    /// Shared by all editors of the process.
    bool setKnobMode(int32_t val) override;
    int32_t getKnobMode() const override;
    uint32_t getTicks();
    /// Lets the host do its own idle work in the middle of ours.
    void doIdleStuff() override;
    AudioEffect* getEffect() override;
    void beginEdit(int32_t index) override;
    void endEdit(int32_t index) override;
    bool beforeSizeChange(const CRect& newSize, const CRect& oldSize) override;
    EditorPump* getPump() const override { return pump_; }

protected:
    ERect rect; // logical pixels

private:
    void turn();
    IPlatformFrame* openPlatformFrame() const;
    double scaleFactor() const;

    EditorPump* const pump_; // remembered
    ERect windowRect_{};
    bool inTurn_ = false;
    bool inIdleStuff_ = false;
};

} // namespace VSTGUI

using VSTGUI::AEffGUIEditor;
