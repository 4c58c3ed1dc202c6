#pragma once

#include "demo/StereoSound.h"

namespace pedl::demo {

/// How loud a sound is, in decibels against full scale. Both channels together; a square wave at
/// full scale has 0 dB in both figures.
struct Levels {
    double rmsDb;
    double peakDb;
};

Levels levelsOf(const StereoSound& sound);

/// A linear level in decibels; what is lower than `least` has its figure, so that silence has one.
[[nodiscard]] double decibelsOf(double level, double least = 1e-8);

/// A power, in the same way.
[[nodiscard]] double decibelsOfPower(double power, double least = 1e-16);

} // namespace pedl::demo
