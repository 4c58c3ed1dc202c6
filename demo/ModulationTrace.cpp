#include "demo/ModulationTrace.h"

#include "demo/Levels.h"

#include <algorithm>
#include <cmath>

namespace pedl::demo {

namespace {

// Half a pixel of a picture with ten octaves or fifty decibels on five hundred pixels.
constexpr double kVisibleOctaves = 0.01;
constexpr double kVisibleDb = 0.05;

double octavesBetween(double oneHz, double otherHz) {
    return std::abs(std::log2(oneHz / otherHz));
}

double decibelsBetween(double one, double other) {
    constexpr double kSilentGain = 1e-6; // two that are lower are both silent
    return std::abs(decibelsOf(one, kSilentGain) - decibelsOf(other, kSilentGain));
}

} // namespace

bool channelsDiffer(const ModulationTrace& trace) {
    return std::ranges::any_of(trace, [](const ModulationPoint& point) {
        return octavesBetween(point.cutoffLeftHz, point.cutoffRightHz) > kVisibleOctaves ||
               decibelsBetween(point.gainLeft, point.gainRight) > kVisibleDb;
    });
}

bool gainMatters(const ModulationTrace& trace) {
    return std::ranges::any_of(trace, [](const ModulationPoint& point) {
        return decibelsBetween(point.gainLeft, 1.0) > kVisibleDb ||
               decibelsBetween(point.gainRight, 1.0) > kVisibleDb;
    });
}

} // namespace pedl::demo
