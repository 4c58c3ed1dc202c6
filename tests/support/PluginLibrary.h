#pragma once

#include "tests/support/RecordingHost.h"

#include <string>

namespace pedl::test {

/// A plug-in's shared library, opened as hosts open it (local, lazy) and closed at the end of
/// scope.
///
/// It sees no settings of the user: they are looked for in a folder that does not exist.
class PluginLibrary {
public:
    explicit PluginLibrary(const std::string& path);
    ~PluginLibrary();
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;

    [[nodiscard]] bool isOpen() const { return handle_ != nullptr; }

    /// A new instance, neither opened nor resumed; null where the entry refuses or is missing.
    [[nodiscard]] AEffect* create() const;

private:
    void* handle_;
};

/// Hands an opcode to an instance; arguments not given are 0.
VstIntPtr dispatch(AEffect* effect, VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0,
                   void* ptr = nullptr, float opt = 0.0F);

/// An instance that is opened and running, and closed at the end of scope.
class RunningEffect {
public:
    RunningEffect(const PluginLibrary& library, float sampleRateHz, VstInt32 blockFrames);
    ~RunningEffect();
    RunningEffect(const RunningEffect&) = delete;
    RunningEffect& operator=(const RunningEffect&) = delete;

    AEffect* operator->() const { return effect_; }
    [[nodiscard]] AEffect* get() const { return effect_; }

private:
    AEffect* effect_;
};

/// One event of a MIDI controller, ready for `effProcessEvents`. Not to be moved: it points to
/// itself.
struct ControlChange {
    ControlChange(int channel, int controller, int value);
    ControlChange(const ControlChange&) = delete;
    ControlChange& operator=(const ControlChange&) = delete;

    VstMidiEvent event{};
    VstEvents list{};
};

} // namespace pedl::test
