// What the hint line says of the panel's controls: one sentence each, for many of them with the
// state that they are in.

#include "foundation/basics/FixedText.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/HintText.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace pedl {

namespace {

// clang-format off
constexpr auto kPlainHints = std::to_array<Hint>({
    {kGain,                "Input. Sets the input level"},
    {kLFOFilter,           "LFO Filter. Sets the low pass filter influence on the LFO signal"},
    {kLFOWidth,            "LFO Width. Sets the pulse width of the LFO waveform"},
    {kLFOFreq,             "LFO Rate. Adjusts the LFO frequency in Hz"},
    {kLFOSynchroRate,      "LFO Synchro Rate. Sets the musical note division to which the LFO rate will be quantized"},
    {kTempoSetup,          "Tempo BPM. Sets the tempo value to which the LFO rate will be quantized"},
    {kLFORndmization,      "LFO Randomization. Sets the level of the LFO randomization"},
    {kLFOSpread,           "LFO Spread. Adjusts the LFO phase difference between the left and right channels"},
    {kRateLFOByEnv,        "Envelope Follower to LFO Rate Amount. Sets the amount of LFO rate modulation by the EF module"},
    {kDepthLFOByEnv,       "Envelope Follower to LFO Depth Amount. Sets the amount of LFO depth modulation by the EF module"},
    {kFilterType,          "Filter Type. Smoothly sets the filter type between LPF, BPF and HPF"},
    {kFilterReso,          "Filter Resonance. Sets the resonance level of the filter"},
    {kFilterCutoffFreq,    "Sets the filter cut-off frequency in Hz"},
    {kFilterSaturation,    "Filter Saturation. Sets the saturation level of the filter resonance"},
    {kEnvThreshold,        "Envelope Follower Threshold. Sets the threshold level of the EF (in dB)"},
    {kEnvAttack,           "Envelope Follower Attack. Sets the attack time of the EF (in ms)"},
    {kEnvAttackExtension,  "Envelope Follower Attack Extension. Sets the attack extension level"},
    {kEnvRelease,          "Envelope Follower Release. Sets the release time of the EF (in ms)"},
    {kEnvRange,            "Envelope Follower Range. Sets the level range of the EF"},
    {kFilterFreqByLFO,     "LFO to filter frequency amount. Sets the LFO module output to filter frequency modulation level"},
    {kGainByLFO,           "LFO to Output Gain amount. Sets the LFO module to output gain modulation level"},
    {kFilterFreqByENV,     "Envelope Follower to filter frequency amount. Sets the EF module output to filter frequency modulation level"},
    {kGainByENV,           "Envelope Follower to Output Gain amount. Sets the EF module to output gain modulation level"},
    {kLimiterTreshold,     "Output Limiter. Sets the limiter level of the feedback signal"},
    {kSoftSatTreshold,     "Output Soft Saturation. Sets the saturation level of the output signal"},
    {kDry,                 "Dry. Sets the level of the dry output signal"},
    {kWet,                 "Wet. Sets the level of the wet output signal"},
    {kModulationOnOff,     "Click to switch all modulations on or off"},
    {kFilterFreqSlider,    "Sets the filter cut-off frequency in Hz (up/down [SHIFT] key = octave [semitone] up/down)"},
    {kLFOEncoder,          "The LFO Rate encoder. Sets the LFO Rate or the tempo in the sync mode (press Alt [Option])"},
    {kCutoffEncoder,       "Sets the filter cut-off frequency in Hz"},
    {kDisplayMode_Cutoff,  "The display mode. Sets the display to filter cut-off frequency permanently"},
    {kDisplayMode_LFORate, "The display mode. Sets the display to the LFO Rate permanently"},
    {kDryWetMix,           "Controls the Mix ratio between Dry and Wet. Press ALT (Option) to control both Dry and Wet level"},
    {kInverseInputLink,    "Controls the level of the input and outputs signals in antiparallel"},
    {kModulationLockLabel, "All modulation in lock state (off). Click the MODULATION label to unlock"},
    {kAbout,               "Click to see which version of the plug-in this is"},
});
// clang-format on

/// How a value becomes one of a hint's states.
enum class Steps { Nearest, Begun };

/// A sentence that ends in the state of a parameter.
struct StateHint {
    std::int32_t tag;
    std::int32_t parameter; ///< whose state; nearly always the control's own
    Steps steps;
    std::string_view beginning;
    std::array<std::string_view, 7> states; ///< as many as are not empty, over 0..1
};

// clang-format off
constexpr auto kStateHints = std::to_array<StateHint>({
    {kPower, kPower, Steps::Nearest, "Bypasses all audio processes: ", {"OFF", "ON"}},
    {kFreezMode, kFreezMode, Steps::Nearest, "Switches the Freeze button mode: ",
        {"Monostable switch with (stable) position ON", "Monostable switch with (stable) position OFF",
         "Bistable switch"}},
    {kFreez, kFreez, Steps::Nearest, "Toggles freezing of the current state of modulation: ", {"OFF", "ON"}},
    {kLFOType, kLFOType, Steps::Begun, "LFO Wave Selector. Selects the LFO waveform. LFO Wave: ",
        {"sine", "triangle", "saw up", "saw down", "square", "spike", "random value"}},
    {kLFOSyncMode, kLFOSyncMode, Steps::Nearest, "LFO Sync is ",
        {"OFF, the LFO Rate is fixed and set in Hz",
         "ON, the LFO Rate is quantized to the note value and the manually set tempo",
         "ON, the LFO Rate is quantized to the note value and the host tempo"}},
    {kLFORndmizationType, kLFORndmizationType, Steps::Nearest, "Select LFO Randomization Speed mode. ",
        {"Fast", "Slow"}},
    {kRateLFOByEnvDefeat, kRateLFOByEnvDefeat, Steps::Nearest,
        "Switches the EF to LFO Rate modulation on or off: ", {"OFF", "ON"}},
    {kDepthLFOByEnvDefeat, kDepthLFOByEnvDefeat, Steps::Nearest,
        "Switches the EF to LFO depth modulation on or off: ", {"OFF", "ON"}},
    {kFilterPole, kFilterPole, Steps::Nearest, "Switches the Filter Slope: ",
        {"Filter is OFF", "12 dB/oct filter", "24 dB/oct filter"}},
    {kEnvThresholdMode, kEnvThresholdMode, Steps::Nearest, "Switches the EF Threshold operating mode: ",
        {"above threshold", "below threshold", "around threshold"}},
    {kFilterFreqByLFODefeat, kFilterFreqByLFODefeat, Steps::Nearest,
        "Switches the LFO to filter frequency modulation on or off: ", {"OFF", "ON"}},
    {kGainByLFODefeat, kGainByLFODefeat, Steps::Nearest,
        "Switches the LFO to Output Gain modulation on or off: ", {"OFF", "ON"}},
    {kFilterFreqByENVDefeat, kFilterFreqByENVDefeat, Steps::Nearest,
        "Switches the EF to filter frequency modulation on or off: ", {"OFF", "ON"}},
    {kGainByENVDefeat, kFilterFreqByENVDefeat, Steps::Nearest, // the other switch's state is meant
        "Switches the EF to Output Gain modulation on or off: ", {"OFF", "ON"}},
    {kLimSoftSatRouting, kLimSoftSatRouting, Steps::Nearest,
        "Switches the LIMiter/SATuration Routing Mode: ", {"pre WET", "post WET", "post MIX"}},
    {kLimiterDefeat, kLimiterDefeat, Steps::Nearest, "Switches the Output Limiter on or off: ", {"OFF", "ON"}},
    {kSoftSatDefeat, kSoftSatDefeat, Steps::Nearest,
        "Switches the Output Soft Saturation on or off: ", {"OFF", "ON"}},
    {kDryDefeat, kDryDefeat, Steps::Nearest, "Switches the Dry signal on or off: ", {"OFF", "ON"}},
    {kWetDefeat, kWetDefeat, Steps::Nearest, "Switches the Wet signal on or off: ", {"OFF", "ON"}},
    {kDryWetGlobal, kDryWetGlobal, Steps::Nearest, "Sets the Dry and Wet to Bank/Preset settings. ",
        {"Preset mode engaged", "Bank mode engaged"}},
    {kFreqNoteScaleSwitch, kFreqNoteScaleSwitch, Steps::Nearest, "Switches the Display Scale Mode: ",
        {"FREQUENCY", "NOTE"}},
    {kDisplayParameterMode, kDisplayParameterMode, Steps::Nearest, "Display is showing the ",
        {"filter cut-off frequency setting", "LFO Rate setting"}},
});
// clang-format on

/// The state that a value stands for, empty where there is none.
std::string_view stateOf(const StateHint& hint, float value) {
    std::size_t count = 0;
    while (count < hint.states.size() && !hint.states[count].empty())
        ++count;
    const float steps = static_cast<float>(count - 1) * value; // in single precision: 5/6 is row 5
    const float state = std::trunc(hint.steps == Steps::Nearest ? steps + 0.5F : steps);
    return state >= 0.0F && state < static_cast<float>(count)
               ? hint.states[static_cast<std::size_t>(state)]
               : std::string_view();
}

} // namespace

void ZMTpedlFilterEffect::getHintText(std::int32_t tag, char* text) {
    for (const StateHint& hint : kStateHints) {
        if (hint.tag != tag)
            continue;
        const std::string_view state = stateOf(hint, getParameter(hint.parameter));
        if (state.empty())
            return;
        FixedText<kHintTextLength> whole;
        whole.append(hint.beginning);
        whole.append(state);
        copyHint(text, whole);
        return;
    }
    copyHint(text, findHint(kPlainHints, tag));
}

} // namespace pedl
