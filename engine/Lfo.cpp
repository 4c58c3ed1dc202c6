#include "engine/Lfo.h"

#include "engine/Stages.h"

#include <cmath>

namespace pedl {

namespace {

constexpr double kTwoPi = 6.283185307179586;

/// Normalised rate 0..1 in Hz: 0.01..15.
[[nodiscard]] double rateHzFromNormalised(double normalised) noexcept {
    return 0.01 + 14.99 * normalised;
}

} // namespace

Lfo::Lfo(std::uint32_t seed, InstructionSet instructions)
    : stages_(stagesFor(instructions)), waves_(LfoWaves::shared()) {
    state_.random.draw(seed);
    updateFilter();
    updateBiquad();
}

void Lfo::setType(double normalised) noexcept {
    type_.set(static_cast<int>(6.0 * normalised));
}

void Lfo::setFilter(double normalised) noexcept {
    filter_.set(normalised);
    updateFilter();
}

void Lfo::setWidth(double normalised) noexcept {
    const double width = 0.125 * std::pow(64.0, 1.0 - normalised);
    width_.set(width);
    inverseWidth_.set(1.0 / width);
}

void Lfo::setRate(double normalised) noexcept {
    rate_.set(normalised);
    updateFilter();
    updateBiquad();
}

void Lfo::setRandomType(double normalised) noexcept {
    randomType_.set(static_cast<int>(normalised + 0.5));
}

void Lfo::setSpread(double normalised) noexcept {
    const double way = 1.0 - 2.0 * normalised;
    spread_.set(std::copysign(way * way, way));
}

void Lfo::updateFilter() noexcept {
    const double cornerHz = 10.0 * std::pow(10.0, 1.0 - filter_.get()) + 15.0 * rate_.get();
    filterCoefficient_.set(onePoleCoefficient(cornerHz, sampleRateHz_.get()));
}

// Low-pass of R. Bristow-Johnson's "Audio EQ Cookbook" at 2.82 times the rate, well damped: random
// values turn into a walk that keeps pace with the wave.
void Lfo::updateBiquad() noexcept {
    constexpr double kCornerOverRate = 2.0 * 1.41;
    constexpr double kTwoQ = 0.4;
    const double w =
        kTwoPi * kCornerOverRate * rateHzFromNormalised(rate_.get()) / sampleRateHz_.get();
    const double alpha = std::sin(w) / kTwoQ;
    const double a0 = 1.0 + alpha;
    b0_.set((1.0 - std::cos(w)) / 2.0 / a0);
    b1_.set((1.0 - std::cos(w)) / a0);
    b2_.set((1.0 - std::cos(w)) / 2.0 / a0);
    a1_.set(-2.0 * std::cos(w) / a0);
    a2_.set((1.0 - alpha) / a0);
}

void Lfo::reinitialise(std::uint32_t seed) noexcept {
    state_.spread = spread_.get();
    state_.phase = state_.randomPhase = 0.0;
    updateFilter();
    updateBiquad();
    state_.random.draw(seed);
    // The lamps start dark, and the smoothed wave rises from there.
    state_.smoothed[0] = state_.smoothed[1] = -1.0;
}

void Lfo::lockPhase(double phaseCycles) noexcept {
    state_.phase = state_.randomPhase = phaseCycles * (kWaveSteps - 1);
}

void Lfo::process(const MonoStretch& rateHz, int frames, LfoOutput& output) noexcept {
    constexpr double kFastStepsACycle = 8.0; // random values in one LFO cycle
    constexpr double kWaveStepsACycle = 4.0; // the same for the random wave itself
    constexpr double kSlowStepsASecond = 0.625;
    constexpr double kSmoothing = 0.3; // of the low-pass's coefficient
    const double sampleRateHz = sampleRateHz_.get();
    Controls controls;
    controls.wave = wave();
    controls.randomType = static_cast<RandomType>(randomType_.get());
    controls.width = width_.get();
    controls.inverseWidth = inverseWidth_.get();
    controls.randomAmount = randomAmount_.get();
    controls.phaseScale = kWaveSteps / sampleRateHz;
    if (controls.wave == Wave::Random)
        controls.randomScale = kWaveStepsACycle / sampleRateHz;
    else if (controls.randomType == RandomType::Fast)
        controls.randomScale = kFastStepsACycle / sampleRateHz;
    else
        controls.randomScale = kSlowStepsASecond / sampleRateHz;
    controls.randomFollowsRate =
        controls.wave == Wave::Random || controls.randomType == RandomType::Fast;
    controls.smoothing = filterCoefficient_.get() * kSmoothing;
    controls.biquad = {b0_.get(), b1_.get(), b2_.get(), a1_.get(), a2_.get()};
    controls.waves = &waves_;
    stages_.lfo(state_, controls, rateHz, frames, output);
}

} // namespace pedl
