#pragma once

#include "engine/Stretch.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

namespace pedl::test {

constexpr double kPi = 3.141592653589793;

using Samples = std::vector<double>;

[[nodiscard]] inline double db(double linear) {
    return 20.0 * std::log10(linear);
}

/// Random choices that are the same with every standard library.
class Random {
public:
    explicit Random(std::uint32_t seed) : generator_(seed) {}

    /// 0 up to, not including, 1.
    double uniform() { return static_cast<double>(generator_()) / 4294967296.0; }
    double between(double low, double high) { return low + (high - low) * uniform(); }
    /// low..high, both included
    int integer(int low, int high) { return low + static_cast<int>(uniform() * (high - low + 1)); }
    std::uint64_t bits() { return (std::uint64_t{generator_()} << 32) | generator_(); }

private:
    std::mt19937 generator_;
};

/// Left and right of a number of frames.
struct StereoSamples {
    explicit StereoSamples(std::size_t frames = 0, double value = 0.0)
        : left(frames, value), right(frames, value) {}

    bool operator==(const StereoSamples&) const = default;

    Samples left, right;
};

/// Hands `frames` frames to `play(first, length)` in stretches.
template <typename Play> void inStretches(int frames, Play&& play) {
    for (int first = 0; first < frames; first += kStretchFrames)
        play(first, std::min(kStretchFrames, frames - first));
}

inline void load(const StereoSamples& from, int first, int length, StereoStretch& to) {
    for (int i = 0; i < length; ++i) {
        to.at[2 * i] = from.left[static_cast<std::size_t>(first + i)];
        to.at[2 * i + 1] = from.right[static_cast<std::size_t>(first + i)];
    }
}

inline void append(const StereoStretch& from, int length, StereoSamples& to) {
    for (int i = 0; i < length; ++i) {
        to.left.push_back(from.at[2 * i]);
        to.right.push_back(from.at[2 * i + 1]);
    }
}

/// Gain at `hz` of what answers an impulse of `impulse` with `response`.
[[nodiscard]] inline double gainDb(const Samples& response, double impulse, double hz,
                                   double sampleRateHz) {
    const std::complex<double> step = std::polar(1.0, -2.0 * kPi * hz / sampleRateHz);
    std::complex<double> turn = 1.0, sum = 0.0;
    for (const double sample : response) {
        sum += sample * turn;
        turn *= step;
    }
    return db(std::abs(sum) / impulse);
}

[[nodiscard]] inline Samples sine(std::size_t frames, double hz, double level,
                                  double sampleRateHz) {
    Samples samples(frames);
    for (std::size_t i = 0; i < frames; ++i)
        samples[i] = level * std::sin(2.0 * kPi * hz * static_cast<double>(i) / sampleRateHz);
    return samples;
}

[[nodiscard]] inline double peakOf(const Samples& samples) {
    double peak = 0.0;
    for (const double sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

[[nodiscard]] inline bool areFinite(const StereoSamples& samples) {
    const auto isFinite = [](double sample) { return std::isfinite(sample); };
    return std::all_of(samples.left.begin(), samples.left.end(), isFinite) &&
           std::all_of(samples.right.begin(), samples.right.end(), isFinite);
}

} // namespace pedl::test
