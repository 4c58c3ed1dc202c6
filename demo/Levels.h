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

} // namespace pedl::demo
