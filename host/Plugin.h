#pragma once

#include "foundation/text/Result.h"
#include "foundation/vst24/VendorCalls.h"
#include "foundation/vst24/VstOpcodes.h"
#include "host/HostServices.h"
#include "host/PluginLibrary.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pedl {

/// Sample rate and block size that a plug-in is prepared for.
struct AudioSetup {
    double sampleRateHz = 44100.0;
    VstInt32 blockFrames = 512; // most frames a block will have
};

/// One instance of any VST 2.4 plug-in, seen through its record as every host sees it.
///
///     auto loaded = Plugin::load("/usr/local/lib/vst/ZMTpedlFilter.so", {48000.0, 512});
///     Plugin& plugin = *loaded.value();
///     plugin.setParameter(21, 0.5F);
///     plugin.resume();
///     plugin.process(inputs, outputs, frames); // as often as wanted
///
/// Closing the instance and unloading its library happen in the destructor. Texts come back as
/// valid UTF-8 without control characters, whatever the plug-in wrote; indices must exist.
/// Thread: one at a time; `process` may be another one than the rest.
class Plugin {
public:
    /// Loads the library, makes an instance and opens it. What is not a plug-in that replaces its
    /// output is refused with a reason.
    static Result<std::unique_ptr<Plugin>> load(const std::filesystem::path& path,
                                                const AudioSetup& setup = {});
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    /// Any call through the dispatcher, for what has no function here.
    VstIntPtr call(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                   float opt = 0.0F);

    [[nodiscard]] const AEffect& record() const { return *effect_; }
    [[nodiscard]] HostServices& services() { return services_; }

    // Identity
    [[nodiscard]] VstInt32 uniqueId() const { return effect_->uniqueID; }
    /// Whether it is ZMT pedlFilter itself.
    [[nodiscard]] bool isOurs() const { return uniqueId() == kVendorCallId; }
    [[nodiscard]] std::string name();
    [[nodiscard]] std::string vendor();
    [[nodiscard]] std::string product();
    /// @return 1 yes, 0 unknown, -1 no
    [[nodiscard]] VstIntPtr canDo(const char* ability);
    [[nodiscard]] std::optional<VstPinProperties> inputPin(VstInt32 index);
    [[nodiscard]] std::optional<VstPinProperties> outputPin(VstInt32 index);

    // Parameters
    [[nodiscard]] VstInt32 numParameters() const { return effect_->numParams; }
    [[nodiscard]] std::string parameterName(VstInt32 index);
    /// The name in the parameter's properties, mostly the longer one; empty where there is none.
    [[nodiscard]] std::string parameterLongName(VstInt32 index);
    [[nodiscard]] std::string parameterUnit(VstInt32 index);
    [[nodiscard]] std::string displayText(VstInt32 index);
    [[nodiscard]] bool canBeAutomated(VstInt32 index);
    [[nodiscard]] float parameter(VstInt32 index);
    void setParameter(VstInt32 index, float normalised);

    /// The text that the parameter would show at another value. Our own effect tells without being
    /// changed; any other is set, asked and set back, so this is for the time before audio runs.
    [[nodiscard]] std::string displayTextAt(VstInt32 index, float normalised);

    /// Whether texts of other values can be had without changing the parameter.
    [[nodiscard]] bool tellsTextsOfOtherValues();

    // Programs
    /// Names of all programs that can be selected, by slot from 0.
    [[nodiscard]] std::vector<std::string> programNames();
    /// @return false where there is no such slot
    [[nodiscard]] bool selectProgram(VstInt32 slot);

    // State
    /// Everything that a host saves with a song; empty where the plug-in keeps no chunk.
    [[nodiscard]] std::vector<std::byte> chunk();
    /// @return false where the plug-in keeps no chunk
    [[nodiscard]] bool setChunk(std::vector<std::byte> chunk);

    // Audio
    /// Takes effect with the next `resume`; the instance is suspended if it runs.
    void setUp(const AudioSetup& setup);
    void resume();
    void suspend();
    [[nodiscard]] bool isRunning() const { return isRunning_; }
    [[nodiscard]] bool processesDouble() const;
    /// Whether audio of a file can go through it, or what it lacks for that.
    [[nodiscard]] Done processesFiles() const;

    /// One block, and the song moves on by it.
    /// @param inputs, outputs  as many pointers as the record has pins, `frames` samples each
    void process(const float* const* inputs, float* const* outputs, VstInt32 frames);
    /// Only where `processesDouble()`.
    void process(const double* const* inputs, double* const* outputs, VstInt32 frames);

    /// Hands MIDI events over for the coming block. Their sizes and types are filled in here.
    /// Real time: allocates when there are more events than ever before.
    void sendMidi(std::span<const VstMidiEvent> events);

private:
    Plugin(PluginLibrary library, const AudioSetup& setup);

    /// Runs the entry; a reason when what it returned is no usable instance.
    Done start(const std::string& path);
    [[nodiscard]] bool keepsChunks() const { return (effect_->flags & effFlagsProgramChunks) != 0; }
    std::string text(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0);
    std::string textAtValue(VstInt32 index, float normalised);

    PluginLibrary library_; // first: unloaded last
    HostServices services_;
    AEffect* effect_ = nullptr; // null until the entry gave a valid one; the plug-in's own
    bool isRunning_ = false;
    std::optional<bool> tellsTexts_; // nothing until asked

    std::vector<VstMidiEvent> midi_;     // events of the coming block
    std::vector<std::byte> eventRecord_; // VstEvents with room for all of them
};

} // namespace pedl
