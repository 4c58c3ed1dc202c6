// Dry and wet levels: the program's or the bank's, and the two relative controls that move them.

#include "plugin/MixKnob.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <algorithm>
#include <atomic>
#include <cmath>

namespace pedl {

namespace {

/// The relative controls send this instead of a step when they are to go back to unity.
constexpr float kResetMarker = -1000.0F;

constexpr float kUnity = 0.5F; // of a gain or level in normalised units

/// Decibels that the input gain covers from one end to the other.
constexpr double kInputGainSpanDb = 48.0;

/// The relative controls deliver one step at a time: half a turn down is +1, half a turn up -1.
double stepOf(float value) {
    return -(2.0 * static_cast<double>(value) - 1.0);
}

/// A position that has run past an end, as hosts may see it.
float toHost(double position) {
    return static_cast<float>(std::clamp(position, 0.0, 1.0));
}

} // namespace

bool ZMTpedlFilterEffect::isBankMode() const noexcept {
    return programValue(kDryWetGlobal) >= 0.5F;
}

DryWetPair ZMTpedlFilterEffect::levelsInForce() const noexcept {
    return {static_cast<double>(effectiveDryWetLevel(kDry)),
            static_cast<double>(effectiveDryWetLevel(kWet))};
}

float ZMTpedlFilterEffect::effectiveDryWetLevel(std::int32_t index) const {
    switch (index) {
    case kDry:
        return isBankMode() ? programValue(kDryGlobal) : programDry_.get();
    case kWet:
        return isBankMode() ? programValue(kWetGlobal) : programWet_.get();
    default:
        return 0.0F;
    }
}

/// In bank mode the dry and wet controls move the level that all programs share. Every program
/// holds a copy of it, so that it outlives the selection of another one.
void ZMTpedlFilterEffect::editSharedLevel(std::int32_t index, float normalised) {
    editableBank().setValueInEverySlot(index == kDry ? kDryGlobal : kWetGlobal, normalised);
    storeParameter(index, normalised);
    applyDryWetSource(index);
}

/// Looks once more at the levels, as `playStored` does at a value.
void ZMTpedlFilterEffect::applyDryWetSource(std::int32_t index) {
    DryWetPair levels = levelsInForce();
    for (bool isSettled = false; !isSettled;) {
        const DryWetPair played = levels;
        engine_.setDryLevel(static_cast<float>(played.dry));
        engine_.setWetLevel(static_cast<float>(played.wet));
        mixKnob_.follow(played);
        std::atomic_thread_fence(std::memory_order_seq_cst);
        levels = levelsInForce();
        isSettled = levels == played;
    }
    tellParameter(index, effectiveDryWetLevel(index));
}

void ZMTpedlFilterEffect::applyBothSources() {
    applyDryWetSource(kDry);
    applyDryWetSource(kWet);
}

void ZMTpedlFilterEffect::turnMixKnob(float value) {
    if (value == kResetMarker) {
        mixPosition_.set(0.0F);
        mixKnob_.setPair({kUnity, kUnity});
        automateLevels({kUnity, kUnity});
        return;
    }
    if (isProgramLoading() || !std::isfinite(value))
        return;
    mixPosition_.set(std::clamp(2.0F * value - 1.0F, -1.0F, 1.0F));
    automateLevels(mixKnob_.turn(stepOf(value), levelsInForce()));
}

/// The knob's own pair stays as it is: it may lie beyond the ends at which the levels stop.
void ZMTpedlFilterEffect::automateLevels(DryWetPair levels) {
    mixKnob_.beginMove();
    beginEdit(kDry);
    setParameterAutomated(kDry, toHost(levels.dry));
    setParameterAutomated(kWet, toHost(levels.wet));
    endEdit(kDry);
    mixKnob_.endMove();
}

void ZMTpedlFilterEffect::turnInverseLink(float value) {
    if (value == kResetMarker) {
        for (const ParameterIndex index : {kGain, kDry, kWet})
            automate(index, kUnity);
        return;
    }
    if (!std::isfinite(value))
        return;
    const DryWetPair levels = levelsInForce();
    const auto before = static_cast<double>(programValue(kGain));
    const double after = std::clamp(before + stepOf(value), 0.0, 1.0);
    automate(kGain, toHost(after));
    // A level is the square of its knob's position: the root of the change keeps the output level.
    const double gainChange = std::pow(10.0, kInputGainSpanDb * (after - before) / 20.0);
    automate(kDry, toHost(levels.dry / std::sqrt(gainChange)));
    automate(kWet, toHost(levels.wet / std::sqrt(gainChange)));
}

} // namespace pedl
