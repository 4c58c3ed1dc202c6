#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace pedl::demo {

constexpr std::size_t kBands = 27; ///< thirds of an octave, from 40 Hz to 16 kHz

/// A sound every 10 ms: what moves in it.
struct ShortTimes {
    std::array<double, kBands> bandDb{}; ///< mean power of the whole sound, by band
    std::vector<double> levelDb;         ///< both channels
    std::vector<double> centroidOctaves; ///< where the middle of the power lies, above 1 Hz
    std::vector<double> sideDb;          ///< left against right, positive where left is louder
    double widthDb = 0.0;                ///< side against middle, of the whole
    double crestDb = 0.0;                ///< peak against RMS
    double totalDb = 0.0;
    double peakDb = 0.0;
};

ShortTimes shortTimesOf(const StereoSound& sound);

/// A figure of a fingerprint, in steps that are just heard.
struct Feature {
    std::string name;
    double steps;
};

/// What a program does to one material, without its overall level: the colour, how level and
/// centroid move and how fast, the stereo image, and how all this answers to 18 dB less of input.
using Fingerprint = std::vector<Feature>;

/// @param loud, soft  what came out of `dry` and of the same 18 dB lower
Fingerprint fingerprintOf(const ShortTimes& dry, const ShortTimes& loud, const ShortTimes& soft);

/// How many just audible steps lie between two prints of one material.
double stepsBetween(const Fingerprint& one, const Fingerprint& other);

} // namespace pedl::demo
