#pragma once

#include "parameters/ParameterRows.h"

#include <cstdint>

namespace pedl {

// One numbering space addresses everything that has a value: the parameters, the MIDI links that
// belong to them, and the tags of the view's controls. A control's tag is the index of the
// parameter that it shows.

#define PEDL_IDENTIFIER(identifier, ...) identifier,
enum ParameterIndex : std::int32_t {
    // clang-format off
    PEDL_PARAMETER_ROWS(PEDL_IDENTIFIER)
    // clang-format on
    kNumParams
};
#undef PEDL_IDENTIFIER
static_assert(kNumParams == 56, "hosts, stored programs and files count on 56");

/// Index 56 + p addresses the MIDI link of parameter p.
constexpr std::int32_t kFirstMidiLink = kNumParams;
constexpr std::int32_t kLastMidiLink = 2 * kNumParams - 1;

/// Tags beyond the parameters: meters and lamps, relative controls, and values that the effect
/// holds for its view.
enum ControlTag : std::int32_t {
    kEfLEDMeter = 2 * kNumParams,
    kLfoLEDMeter_L,
    kLfoLEDMeter_R,
    kLimiterLEDMeter,
    kSoftSatLED,
    kWetLEDMeter,
    kDryLEDMeter,
    kFreezStatusLED,
    kPowerLED,
    kFilterFreqSlider,
    kLFOEncoder,
    kCutoffEncoder,
    kDisplayParameterMode,
    kDisplayMode_Cutoff,
    kDisplayMode_LFORate,
    kDryWetMix,
    kInverseInputLink,
    kModulationLockLabel,
    kAbout,
    kDryWetAltVol,
    kLFOFreqOverflow,
    kSynchroTempoFromHost,
    kParam4,
    kParam5,
    kParam6,
    kAllParams
};
static_assert(kEfLEDMeter == 112 && kAllParams == 137);

/// Addresses the MIDI channel. It lies among the preset bar's own tags, which begin at kAllParams.
constexpr std::int32_t kMidiChannel = 149;

[[nodiscard]] constexpr bool isParameter(std::int32_t index) noexcept {
    return index >= 0 && index < kNumParams;
}

[[nodiscard]] constexpr bool isMidiLink(std::int32_t index) noexcept {
    return index >= kFirstMidiLink && index <= kLastMidiLink;
}

} // namespace pedl
