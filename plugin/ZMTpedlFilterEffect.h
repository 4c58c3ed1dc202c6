#pragma once

#include "engine/ModFilterEngine.h"
#include "foundation/basics/Relaxed.h"
#include "foundation/platform/Clock.h"
#include "foundation/platform/DiagnosticStream.h"
#include "foundation/platform/SettingsStore.h"
#include "parameters/ParameterIndex.h"
#include "plugin/HostTime.h"
#include "plugin/MixKnob.h"
#include "plugin/TempoSync.h"
#include "presets/CPresetSystemEffect.h"

#include <cstdint>
#include <optional>

namespace pedl {

/// What the effect takes from the system around it. All of it outlives the effect.
struct EffectSurroundings {
    Clock& clock;
    DiagnosticStream& diagnostics;
    SettingsStore& settings;
};

/// The effect as hosts see it: identity, parameters, audio.
///
/// Owns the engine. A value that comes in is written into the current program, turned into engine
/// terms by the row of its parameter, and told to the view; it is read back from the program,
/// except for what the program does not know: the rate that a tempo gives, and the levels in bank
/// mode.
///
/// Thread: `process...`, `setParameter` and `getParameter` any, real time; the rest main or user
/// interface.
class ZMTpedlFilterEffect : public CPresetSystemEffect {
public:
    /// Plays the first factory program when it returns. Waits 100 ms for each program it selects.
    ZMTpedlFilterEffect(audioMasterCallback host, EffectSurroundings surroundings);
    ~ZMTpedlFilterEffect() override;

    // Identity and capabilities
    bool getEffectName(char* name) override;
    bool getProductString(char* text) override;
    bool getVendorString(char* text) override;
    VstInt32 getVendorVersion() override;
    VstPlugCategory getPlugCategory() override { return kPlugCategEffect; }
    bool getInputProperties(VstInt32 index, VstPinProperties* properties) override;
    bool getOutputProperties(VstInt32 index, VstPinProperties* properties) override;
    bool setSpeakerArrangement(VstSpeakerArrangement* pluginInput,
                               VstSpeakerArrangement* pluginOutput) override;
    VstInt32 canDo(char* text) override;
    /// Our own host selects a slot of the bank in this way.
    VstIntPtr vendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt) override;

    // The one program that hosts see
    VstInt32 getProgram() override { return 0; }
    void setProgram(VstInt32 /*program*/) override {}

    /// One diagnostic line.
    void callFailed(VstInt32 opcode, const char* why) noexcept override;

    // Parameters
    void setParameter(VstInt32 index, float normalised) override;
    float getParameter(VstInt32 index) override;
    void getParameterName(VstInt32 index, char* text) override;
    void getParameterLabel(VstInt32 index, char* label) override;
    /// The text of the held value, or of the one that the buffer asks for (`DisplayRequest.h`).
    void getParameterDisplay(VstInt32 index, char* text) override;
    bool canParameterBeAutomated(VstInt32 index) override;
    bool getParameterProperties(VstInt32 index, VstParameterProperties* properties) override;

    // Audio
    void setSampleRate(float rateHz) override;
    void suspend() override;
    void resume() override;
    void processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) override;
    void processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames) override;

    // Hooks of the preset system
    void initialiseFactoryPrograms() override;
    void playStored(std::int32_t parameter) override;
    void getLongParameterName(std::int32_t index, char* text) override;
    [[nodiscard]] std::int32_t learnTarget(std::int32_t tag) override;
    [[nodiscard]] bool isNotLearnable(std::int32_t index) const override;
    [[nodiscard]] float effectiveDryWetLevel(std::int32_t index) const override;
    void applyDryWetSource(std::int32_t index) override;
    void getHintText(std::int32_t tag, char* text) override;

    // For the view

    /// Live values and the peaks since the last call. Thread: user interface.
    void fillMeterSnapshot(MeterSnapshot& snapshot) noexcept {
        engine_.fillMeterSnapshot(snapshot);
    }
    /// What moves the sound, as the last processed frame had it. Thread: any.
    [[nodiscard]] ModulationState modulation() const noexcept { return engine_.modulation(); }
    [[nodiscard]] double tempoBpm() const noexcept { return tempoSync_.tempoBpm(); }
    [[nodiscard]] bool followsHostTempo() const noexcept { return tempoSync_.followsHostTempo(); }

    [[nodiscard]] bool isInputStereo() const noexcept { return isInputStereo_; }
    [[nodiscard]] bool isOutputStereo() const noexcept { return isOutputStereo_; }

private:
    struct Mapping;

    static constexpr VstInt32 kChannels = 2;

    /// What the current slot has for a parameter, in 0..1.
    [[nodiscard]] float programValue(std::int32_t parameter) const noexcept;
    [[nodiscard]] bool hasShortTextBuffers();

    [[nodiscard]] float tagValue(std::int32_t index);
    void applyTag(std::int32_t index, float value);

    // Consequences of a value, named after what they do; `ParameterRows.h` says whose
    void tellInverseLink();
    void tellFrequencySlider();
    void changeSyncMode();
    void changeDivision();
    void changeManualTempo();
    void applyDrySource() { applyDryWetSource(kDry); }
    void applyWetSource() { applyDryWetSource(kWet); }
    void applyBothSources();

    // Dry and wet levels
    void editSharedLevel(std::int32_t index, float normalised);
    void turnMixKnob(float value);
    void turnInverseLink(float value);
    void automateLevels(DryWetPair levels);
    [[nodiscard]] bool isBankMode() const noexcept;
    [[nodiscard]] DryWetPair levelsInForce() const noexcept;

    void updateTempoSync() noexcept;
    [[nodiscard]] std::optional<HostTime> askHostTime();

    ModFilterEngine engine_;
    TempoSync tempoSync_;
    MixKnob mixKnob_;

    // Written and read by any thread.
    Relaxed<float> programDry_{
        0.5F}; // the program's own levels: an edit in bank mode goes into the
    Relaxed<float> programWet_{0.5F}; // slot, and is not heard there until the program is selected
    Relaxed<float> shownQuantity_{0.0F}; // 0: cut-off; 1: LFO rate
    Relaxed<float> mixPosition_{0.0F};   // -1..1; the knob rests at 0
    Relaxed<float> spare4_{0.0F};
    Relaxed<float> spare5_{0.0F};

    bool isInputStereo_ = true;
    bool isOutputStereo_ = true;
};

} // namespace pedl
