#pragma once

#include "engine/Stretch.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <vector>

namespace pedl::test {

constexpr double kPi = 3.141592653589793;

using Samples = std::vector<double>;

[[nodiscard]] inline double db(double linear) {
    return 20.0 * std::log10(linear);
}

/// Left and right of a number of frames.
struct StereoSamples {
    explicit StereoSamples(std::size_t frames = 0) : left(frames), right(frames) {}

    bool operator==(const StereoSamples&) const = default;

    Samples left, right;
};

/// Hands `frames` frames to `play(first, length)` in stretches.
template <typename Play> void inStretches(int frames, Play&& play) {
    for (int first = 0; first < frames; first += kStretchFrames)
        play(first, std::min(kStretchFrames, frames - first));
}

[[nodiscard]] inline StereoStretch constant(double left, double right) {
    StereoStretch stretch;
    for (int i = 0; i < 2 * kStretchFrames; ++i)
        stretch.at[i] = i % 2 == 0 ? left : right;
    return stretch;
}

inline void append(const StereoStretch& from, int length, StereoSamples& to) {
    for (int i = 0; i < length; ++i) {
        to.left.push_back(from.at[2 * i]);
        to.right.push_back(from.at[2 * i + 1]);
    }
}

[[nodiscard]] inline double peakOf(const Samples& samples) {
    double peak = 0.0;
    for (const double sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

} // namespace pedl::test
