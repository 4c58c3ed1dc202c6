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

    reset();
    const bool isUsable = sampleRateHz >= kLowestRateHz && sampleRateHz <= kHighestRateHz;
    const double rate = isUsable ? sampleRateHz : kFallbackRateHz;
    sampleRateHz_.set(rate);
    glideFrames_ = static_cast<int>(rate * kTypeGlideMs / 1000.0);
    smoothing_ = onePoleCoefficient(kControlsCornerHz, rate);
    updateSaturationScale();
    setResonance(resonance_.get());
    trigonometry_ = TrigonometryTable::forRate(rate);
}

void MultimodeFilter::setType(double type) noexcept {
    typeTarget_.set(std::clamp(type, 0.0, 1.0));
}

void MultimodeFilter::setResonance(double resonance) noexcept {
    const double inside = std::clamp(resonance, 0.0, 1.0);
    resonance_.set(inside);
    const bool is24Db = slopeTarget_.get() != 0.0;
    qTarget_.set(is24Db ? 0.5 * std::pow(10.0, inside) : 0.3 * std::pow(100.0, inside));
}

void MultimodeFilter::setSlope(bool is24Db) noexcept {
    slopeTarget_.set(is24Db ? 1.0 : 0.0);
    updateSaturationScale();
    setResonance(resonance_.get()); // each slope has a resonance curve of its own
}

void MultimodeFilter::setSaturation(double saturation) noexcept {
    saturation_.set(saturation);
    updateSaturationScale();
}

void MultimodeFilter::updateSaturationScale() noexcept {
    const double strength = slopeTarget_.get() != 0.0 ? 4.8 : 0.9;
    saturationScale_.set(saturation_.get() * strength * 0.441 / sampleRateHz_.get());
}

void MultimodeFilter::reset() noexcept {
    state_.q.snap(qTarget_.get());
    state_.slope.snap(slopeTarget_.get());
    state_.type.snap(typeTarget_.get());
    for (int channel = 0; channel < 2; ++channel)
        state_.zero1[channel] = state_.zero2[channel] = -1.0;
    for (History& history : state_.stages)
        history = {};
}

void MultimodeFilter::process(StereoStretch& io, const CutoffStretch& cutoff, int frames) noexcept {
    constexpr double kTopOverRate = 0.5001; // a hair above Nyquist: some resonance is left there
    Controls controls;
    controls.q = qTarget_.get();
    controls.type = typeTarget_.get();
    controls.slope = slopeTarget_.get();
    controls.smoothing = smoothing_;
    controls.saturationScale = saturationScale_.get();
    controls.inverseGlideFrames = 1.0 / glideFrames_;
    controls.inverseTopHz = 1.0 / (kTopOverRate * sampleRateHz_.get());
    controls.trigonometry = trigonometry_.get();
    controls.morph = &morph_;
    stages_.filter(state_, controls, io, cutoff, frames);
}

} // namespace pedl
