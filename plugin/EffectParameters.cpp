// The 56 parameters: their texts, their values, and what a value moves.

#include "parameters/CopyText.h"
#include "parameters/DisplayRequest.h"
#include "parameters/ParameterCatalogue.h"
#include "parameters/ParameterRows.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/ValueRepair.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <optional>
#include <string_view>

namespace pedl {

/// What a value moves: an engine setter, then what else hangs on it; either may be null.
struct ZMTpedlFilterEffect::Mapping {
    void (ModFilterEngine::*toEngine)(float) noexcept;
    void (ZMTpedlFilterEffect::*consequence)();

    static const Mapping& of(std::int32_t parameter) noexcept;
};

const ZMTpedlFilterEffect::Mapping&
ZMTpedlFilterEffect::Mapping::of(std::int32_t parameter) noexcept {
    using Engine = ModFilterEngine;
    using Effect = ZMTpedlFilterEffect;
    // clang-format off
#define PEDL_MAPPING(identifier, shortName, longName, text, defaultValue, steps, automation, toEngine, consequence) \
    Mapping{toEngine, consequence},
    static constexpr std::array<Mapping, kNumParams> kMappings{{PEDL_PARAMETER_ROWS(PEDL_MAPPING)}};
#undef PEDL_MAPPING
    // clang-format on
    return kMappings[static_cast<std::size_t>(parameter)];
}

namespace {

bool isRelative(std::int32_t index) {
    return index == kDryWetMix || index == kInverseInputLink;
}

} // namespace

// Texts

void ZMTpedlFilterEffect::getParameterName(VstInt32 index, char* text) {
    copyText(text, shortParameterName(index), kParameterTextLength);
}

// Hosts have stored parameters under these shortened names for years: keep the cut at 8.
void ZMTpedlFilterEffect::getLongParameterName(std::int32_t index, char* text) {
    copyText(text, longParameterName(index), kParameterTextLength);
}

void ZMTpedlFilterEffect::getParameterLabel(VstInt32 /*index*/, char* label) {
    *label = '\0'; // units are part of the display text where there are any
}

void ZMTpedlFilterEffect::getParameterDisplay(VstInt32 index, char* text) {
    const std::optional<float> requested = requestedDisplayValue(text);
    const bool isLevel = index == kDry || index == kWet;
    const float shown =
        requested.value_or(isLevel ? effectiveDryWetLevel(index) : getParameter(index));
    const DisplayText display = parameterText(index, shown);
    const std::string_view whole = display.view();
    const bool isCut = whole.size() > kParameterTextLength && hasShortTextBuffers();
    copyText(text, whole, isCut ? kParameterTextLength : whole.size());
}

/// Nearly all hosts have room for more than the eight characters that the interface promises; one
/// family of them has just these and a terminator.
bool ZMTpedlFilterEffect::hasShortTextBuffers() {
    std::array<char, 256> product{}; // some hosts write more than the 64 bytes of the interface
    return getHostProductString(product.data()) &&
           std::string_view(product.data()).starts_with("LMMS");
}

bool ZMTpedlFilterEffect::canParameterBeAutomated(VstInt32 index) {
    return isAutomatable(index);
}

bool ZMTpedlFilterEffect::getParameterProperties(VstInt32 index,
                                                 VstParameterProperties* properties) {
    getLongParameterName(index, properties->label);
    copyText(properties->shortLabel, shortParameterName(index), kVstMaxShortLabelLen - 1);
    const std::optional<ParameterSteps> steps = parameterSteps(index);
    if (!steps)
        return false;
    properties->stepFloat = steps->step;
    properties->smallStepFloat = steps->smallStep;
    properties->largeStepFloat = steps->largeStep;
    properties->flags = kVstParameterUsesFloatStep | (steps->isSwitch ? kVstParameterIsSwitch : 0);
    return true;
}

// Values

float ZMTpedlFilterEffect::programValue(std::int32_t parameter) const noexcept {
    return repairedValue(bank().value(currentSlot(), parameter));
}

float ZMTpedlFilterEffect::getParameter(VstInt32 index) {
    switch (index) {
    case kLFOFreq:
        return engine_.normalisedLfoRate(); // the tempo's where there is one, not the program's
    case kDry:
        return programDry_.get();
    case kWet:
        return programWet_.get();
    default:
        return isParameter(index) ? programValue(index) : tagValue(index);
    }
}

void ZMTpedlFilterEffect::setParameter(VstInt32 index, float normalised) {
    if (index < 0 || index > kMidiChannel)
        return;
    const float number = std::isnan(normalised) ? 0.0F : normalised;
    const float value = isRelative(index) ? number : std::clamp(number, 0.0F, 1.0F);
    if (!isParameter(index)) {
        applyTag(index, value);
    } else if (isBankMode() && (index == kDry || index == kWet)) {
        editSharedLevel(index, value);
    } else {
        storeParameter(index, value);
        playStored(index);
    }
    noteChange(index, value);
    tellParameter(index, value);
}

/// Threads that set one parameter at a time each look once more at what is stored: whoever comes
/// last plays that. The fence keeps the second look behind what the engine was given.
void ZMTpedlFilterEffect::playStored(std::int32_t parameter) {
    const Mapping& mapping = Mapping::of(parameter);
    float value = programValue(parameter);
    for (bool isSettled = false; !isSettled;) {
        const float played = value;
        if (mapping.toEngine != nullptr)
            (engine_.*mapping.toEngine)(played);
        else if (parameter == kDry || parameter == kWet)
            (parameter == kDry ? programDry_ : programWet_).set(played);
        if (mapping.consequence != nullptr)
            (this->*mapping.consequence)();
        std::atomic_thread_fence(std::memory_order_seq_cst);
        value = programValue(parameter);
        isSettled = value == played;
    }
}

// Consequences

void ZMTpedlFilterEffect::tellInverseLink() {
    tellParameter(kInverseInputLink, programValue(kGain));
}

void ZMTpedlFilterEffect::tellFrequencySlider() {
    tellParameter(kFilterFreqSlider, programValue(kFilterCutoffFreq));
}

void ZMTpedlFilterEffect::changeSyncMode() {
    tempoSync_.setMode(programValue(kLFOSyncMode));
}

void ZMTpedlFilterEffect::changeDivision() {
    tempoSync_.setDivision(programValue(kLFOSynchroRate));
    updateTempoSync(); // at once, so that a view reads the new rate although no audio runs
}

void ZMTpedlFilterEffect::changeManualTempo() {
    tempoSync_.setManualTempo(programValue(kTempoSetup));
}

} // namespace pedl
