#include "demo/Levels.h"

#include <algorithm>
#include <cmath>

namespace pedl::demo {

namespace {

constexpr double kSilence = 1e-8; // -160 dB: silence has a figure too

double decibels(double level) {
    return 20.0 * std::log10(std::max(level, kSilence));
}

} // namespace

Levels levelsOf(const StereoSound& sound) {
    double energy = 0.0;
    double peak = 0.0;
    for (const auto* channel : {&sound.left, &sound.right})
        for (const double sample : *channel) {
            energy += sample * sample;
            peak = std::max(peak, std::abs(sample));
        }
    const double samples = std::max(1.0, 2.0 * static_cast<double>(sound.lengthFrames()));
    return {decibels(std::sqrt(energy / samples)), decibels(peak)};
}

} // namespace pedl::demo
