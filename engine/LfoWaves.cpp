#include "engine/LfoWaves.h"

#include <cmath>
#include <numbers>

namespace pedl {

namespace {

[[nodiscard]] double triangleAt(int i) noexcept {
    const int quarter = kWaveSteps / 4;
    if (i < quarter)
        return static_cast<double>(i) / quarter;
    if (i < 3 * quarter)
        return static_cast<double>(2 * quarter - i) / quarter;
    return static_cast<double>(i - kWaveSteps) / quarter;
}

[[nodiscard]] double sawAt(int i) noexcept {
    const int half = kWaveSteps / 2;
    return i < half ? static_cast<double>(i) / half : static_cast<double>(i - half) / half - 1.0;
}

/// A peak of 102 steps up and 102 down at the start of each half cycle; the second points down.
[[nodiscard]] double spikeAt(int i) noexcept {
    constexpr int kSideSteps = 102;
    constexpr double kSlope = 10.0 / 1024.0; // a hair less than 1 at the peak
    const int half = kWaveSteps / 2;
    const int step = i % half;
    const double sign = i < half ? 1.0 : -1.0;
    if (step < kSideSteps)
        return sign * (step * kSlope);
    if (step < 2 * kSideSteps)
        return sign * (1.0 - (step - kSideSteps) * kSlope);
    return 0.0;
}

[[nodiscard]] LfoWaves buildWaves() noexcept {
    constexpr double kTwoPi = 2.0 * std::numbers::pi;
    LfoWaves waves;
    for (int i = 0; i < kWaveSteps; ++i) {
        const auto at = static_cast<std::size_t>(i);
        waves.sine[at] = 0.5 + 0.5 * std::sin(kTwoPi * i / kWaveSteps);
        waves.triangle[at] = 0.5 + 0.5 * triangleAt(i);
        waves.sawUp[at] = 0.5 + 0.5 * sawAt(i);
        waves.spike[at] = spikeAt(i);
    }
    return waves;
}

/// The same numbers on every platform, so that a seed stands for one sound.
class Generator {
public:
    explicit Generator(std::uint32_t seed) noexcept : state_(seed) {}

    /// The next integer of 0..32767, over the largest: 0..1.
    [[nodiscard]] double unipolar() noexcept { return next() / kLargest; }

    /// The same, spread over -1..1.
    [[nodiscard]] double bipolar() noexcept { return 2.0 * next() / kLargest - 1.0; }

private:
    /// A linear congruential generator; its upper bits are the better ones.
    [[nodiscard]] std::uint32_t next() noexcept {
        constexpr std::uint32_t kMultiplier = 214013;
        constexpr std::uint32_t kIncrement = 2531011;
        state_ = state_ * kMultiplier + kIncrement;
        return (state_ >> 16) & 32767u;
    }

    static constexpr double kLargest = 32767.0;

    std::uint32_t state_;
};

} // namespace

const LfoWaves& LfoWaves::shared() {
    static const LfoWaves waves = buildWaves();
    return waves;
}

void RandomWaves::draw(std::uint32_t seed) noexcept {
    constexpr double kPushToEnds = 0.7;    // exponent below 1: values gather at both ends
    constexpr double kSmallestStep = 0.15; // between neighbours' magnitudes: no standing still
    Generator generator(seed);
    for (double& value : values) {
        const double x = generator.bipolar();
        value = 0.5 + 0.5 * std::copysign(std::pow(std::abs(x), kPushToEnds), x);
    }
    double previous = generator.unipolar(); // the first step alone is never negative
    steps[0] = previous;
    for (std::size_t i = 1; i < steps.size(); ++i) {
        double step = 0.0;
        do
            step = generator.bipolar();
        while (std::abs(std::abs(previous) - std::abs(step)) < kSmallestStep);
        steps[i] = previous = step;
    }
}

} // namespace pedl
