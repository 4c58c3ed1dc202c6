#include "demo/Levels.h"

#include <algorithm>
#include <cmath>

namespace pedl::demo {

Levels levelsOf(const StereoSound& sound) {
    double energy = 0.0;
    double peak = 0.0;
    for (const auto* channel : {&sound.left, &sound.right})
        for (const double sample : *channel) {
            energy += sample * sample;
            peak = std::max(peak, std::abs(sample));
        }
    const double samples = std::max(1.0, 2.0 * static_cast<double>(sound.lengthFrames()));
    return {decibelsOf(std::sqrt(energy / samples)), decibelsOf(peak)};
}

double decibelsOf(double level, double least) {
    return 20.0 * std::log10(std::max(level, least));
}

double decibelsOfPower(double power, double least) {
    return 10.0 * std::log10(std::max(power, least));
}

} // namespace pedl::demo
