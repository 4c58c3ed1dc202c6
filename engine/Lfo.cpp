#include "engine/Lfo.h"

#include "engine/Stages.h"
#include "parameters/ValueLaws.h"

#include <cmath>
#include <numbers>

namespace pedl {

Lfo::Lfo(std::uint32_t seed, InstructionSet instructions)
    : stages_(stagesFor(instructions)), waves_(LfoWaves::shared()) {
    state_.random.draw(seed);
    deriveFilter();
    deriveRandomFilter();
}

void Lfo::setType(double normalised) noexcept {
    type_.set(laws::waveState(normalised));
}

void Lfo::setFilter(double normalised) noexcept {
    filter_.set(normalised);
    changes_.mark(Group::Filter);
}

void Lfo::setWidth(double normalised) noexcept {
    constexpr double kNarrowest = 0.125;
    constexpr double kSpan = 64.0; // the widest over the narrowest
    width_.set(kNarrowest * std::pow(kSpan, 1.0 - normalised));
}

void Lfo::setRate(double normalised) noexcept {
    rate_.set(normalised);
    changes_.mark(Group::Filter, Group::RandomFilter);
}

void Lfo::setRandomType(double normalised) noexcept {
    randomType_.set(laws::twoWayState(normalised));
}

void Lfo::setSpread(double normalised) noexcept {
    const double way = 1.0 - 2.0 * normalised;
    spread_.set(std::copysign(way * way, way));
}

void Lfo::deriveChanged() noexcept {
    const auto changed = changes_.take();
    if (changed.has(Group::Filter))
        deriveFilter();
    if (changed.has(Group::RandomFilter))
        deriveRandomFilter();
}

/// A fast LFO keeps its edges: the corner rises with the rate.
void Lfo::deriveFilter() noexcept {
    constexpr double kLowestCornerHz = 10.0;
    constexpr double kCornerSpan = 10.0; // the highest over the lowest
    constexpr double kCornerHzByRate = 15.0;
    const double cornerHz = kLowestCornerHz * std::pow(kCornerSpan, 1.0 - filter_.get()) +
                            kCornerHzByRate * rate_.get();
    filterCoefficient_ = onePoleCoefficient(cornerHz, sampleRateHz_);
}

// Low-pass of R. Bristow-Johnson's "Audio EQ Cookbook" at 2.82 times the rate, well damped: random
// values turn into a walk that keeps pace with the wave.
void Lfo::deriveRandomFilter() noexcept {
    constexpr double kTwoPi = 2.0 * std::numbers::pi;
    constexpr double kCornerOverRate = 2.0 * 1.41;
    constexpr double kTwoQ = 0.4;
    const double w = kTwoPi * kCornerOverRate * laws::lfoRateHz(rate_.get()) / sampleRateHz_;
    const double alpha = std::sin(w) / kTwoQ;
    const double a0 = 1.0 + alpha;
    randomFilter_.b0 = (1.0 - std::cos(w)) / 2.0 / a0;
    randomFilter_.b1 = (1.0 - std::cos(w)) / a0;
    randomFilter_.b2 = (1.0 - std::cos(w)) / 2.0 / a0;
    randomFilter_.a1 = -2.0 * std::cos(w) / a0;
    randomFilter_.a2 = (1.0 - alpha) / a0;
}

void Lfo::setSampleRate(double sampleRateHz) noexcept {
    deriveChanged(); // what was set until now belongs to the old rate
    sampleRateHz_ = sampleRateHz;
}

void Lfo::reinitialise(std::uint32_t seed) noexcept {
    state_.spread = spread_.get();
    state_.phase = state_.randomPhase = 0.0;
    changes_.mark(Group::Filter, Group::RandomFilter);
    deriveChanged();
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
    deriveChanged();
    Controls controls;
    controls.wave = wave();
    controls.randomType = static_cast<RandomType>(randomType_.get());
    controls.width = width_.get();
    controls.inverseWidth = 1.0 / controls.width;
    controls.randomAmount = randomAmount_.get();
    controls.phaseScale = kWaveSteps / sampleRateHz_;
    if (controls.wave == Wave::Random)
        controls.randomScale = kWaveStepsACycle / sampleRateHz_;
    else if (controls.randomType == RandomType::Fast)
        controls.randomScale = kFastStepsACycle / sampleRateHz_;
    else
        controls.randomScale = kSlowStepsASecond / sampleRateHz_;
    controls.randomFollowsRate =
        controls.wave == Wave::Random || controls.randomType == RandomType::Fast;
    controls.smoothing = filterCoefficient_ * kSmoothing;
    controls.biquad = randomFilter_;
    controls.waves = &waves_;
    stages_.lfo(state_, controls, rateHz, frames, output);
}

} // namespace pedl
