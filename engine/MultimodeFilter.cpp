#include "engine/MultimodeFilter.h"

#include "engine/Stages.h"

#include <algorithm>
#include <cmath>

namespace pedl {

MultimodeFilter::MultimodeFilter(double sampleRateHz, InstructionSet instructions)
    : stages_(stagesFor(instructions)), morph_(MorphTable::shared()) {
    setSampleRate(sampleRateHz);
}

void MultimodeFilter::setSampleRate(double sampleRateHz) {
    constexpr double kLowestRateHz = 20000.0;
    constexpr double kHighestRateHz = 400000.0;
    constexpr double kFallbackRateHz = 44100.0; // for every rate outside, however near it is
    constexpr double kControlsCornerHz = 10.0;
    /// Time in which the zeros reach a new type: felt as immediate, yet without a click.
    constexpr double kTypeGlideMs = 15.0;
    constexpr double kMsASecond = 1000.0;

    const bool isUsable = sampleRateHz >= kLowestRateHz && sampleRateHz <= kHighestRateHz;
    const double rateHz = isUsable ? sampleRateHz : kFallbackRateHz;
    trigonometry_ = TrigonometryTable::forRate(rateHz); // first: where memory is short, it throws
    reset();
    sampleRateHz_ = rateHz;
    glideFrames_ = static_cast<int>(sampleRateHz_ * kTypeGlideMs / kMsASecond);
    smoothing_ = onePoleCoefficient(kControlsCornerHz, sampleRateHz_);
    deriveSaturationScale();
}

void MultimodeFilter::setType(double type) noexcept {
    type_.set(std::clamp(type, 0.0, 1.0));
}

void MultimodeFilter::setResonance(double resonance) noexcept {
    resonance_.set(std::clamp(resonance, 0.0, 1.0));
    changes_.mark(Group::Resonance);
}

void MultimodeFilter::setSlope(bool is24Db) noexcept {
    is24Db_.set(is24Db);
    changes_.mark(Group::Resonance, Group::Saturation);
}

void MultimodeFilter::setSaturation(double saturation) noexcept {
    saturation_.set(saturation);
    changes_.mark(Group::Saturation);
}

void MultimodeFilter::deriveChanged() noexcept {
    const auto changed = changes_.take();
    if (changed.has(Group::Resonance))
        deriveQ();
    if (changed.has(Group::Saturation))
        deriveSaturationScale();
}

/// Each slope has a resonance curve of its own: two stages multiply their gains.
void MultimodeFilter::deriveQ() noexcept {
    struct Curve {
        double lowest, span; // the span is the highest over the lowest
    };
    constexpr Curve kOneStage{0.3, 100.0};
    constexpr Curve kTwoStages{0.5, 10.0};
    const Curve curve = is24Db_.get() ? kTwoStages : kOneStage;
    q_ = curve.lowest * std::pow(curve.span, resonance_.get());
}

void MultimodeFilter::deriveSaturationScale() noexcept {
    // Tuned by ear, the two slopes to the same amount of dirt.
    constexpr double kOneStage = 0.9;
    constexpr double kTwoStages = 4.8;
    constexpr double kPerHz = 0.441; // 1e-5 at 44.1 kHz
    const double strength = is24Db_.get() ? kTwoStages : kOneStage;
    saturationScale_ = saturation_.get() * strength * kPerHz / sampleRateHz_;
}

void MultimodeFilter::reset() noexcept {
    deriveChanged();
    state_.q.snap(q_);
    state_.slope.snap(slopeShare());
    state_.type.snap(type_.get());
    for (int channel = 0; channel < 2; ++channel)
        state_.zero1[channel] = state_.zero2[channel] = -1.0;
    for (History& history : state_.stages)
        history = {};
}

void MultimodeFilter::process(StereoStretch& io, const CutoffStretch& cutoff, int frames) noexcept {
    constexpr double kTopOverRate = 0.5001; // a hair above Nyquist: some resonance is left there
    deriveChanged();
    Controls controls;
    controls.q = q_;
    controls.type = type_.get();
    controls.slope = slopeShare();
    controls.smoothing = smoothing_;
    controls.saturationScale = saturationScale_;
    controls.inverseGlideFrames = 1.0 / glideFrames_;
    controls.inverseTopHz = 1.0 / (kTopOverRate * sampleRateHz_);
    controls.trigonometry = trigonometry_.get();
    controls.morph = &morph_;
    stages_.filter(state_, controls, io, cutoff, frames);
}

} // namespace pedl
