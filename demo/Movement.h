#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"
#include "presets/ProgramRecord.h"

#include <vector>

namespace pedl::demo {

/// Something that moves, read after each block of a trace, once it has settled.
using Curve = std::vector<double>;

/// Octaves above 1 Hz.
[[nodiscard]] double octave(double hertz);
[[nodiscard]] double decibel(double gain);

Curve cutoffOf(const ModulationTrace& trace); ///< the left channel's, in octaves
Curve gainOf(const ModulationTrace& trace);   ///< the left channel's, in decibels
Curve rightGainOf(const ModulationTrace& trace);

/// The value that a curve is below for this part of the time. Of a curve that is not empty.
[[nodiscard]] double quantile(Curve curve, double part);

/// How far a curve moves, without its rarest twentieth at either end.
[[nodiscard]] double spreadOf(const Curve& curve);

/// The share of time in which a curve rises, of the time in which it moves.
[[nodiscard]] double risingShare(const Curve& curve);

/// How often a trace's cut-off crosses the middle of its range, a second.
[[nodiscard]] double crossings(const ModulationTrace& trace);

/// White noise that is the same in both channels.
StereoSound steadyNoise(double levelDb);

/// What moves in a program while noise of one level plays, or its own material.
struct Movement {
    double lowHz = 0.0;  ///< of the cut-off: a twentieth of the time it is lower
    double highHz = 0.0; ///< a twentieth of the time it is higher
    double depthOctaves = 0.0;
    double quietGainDb = 0.0; ///< of the gain, in the same way
    double loudGainDb = 0.0;
    double cutoffRateHz = 0.0; ///< of the strongest periodic movement, 0 for none
    double gainRateHz = 0.0;
};

/// The movement by the LFO alone: the program plays steady noise.
Movement steadyMovement(const ProgramRecord& program, double levelDb, double tempoBpm);

} // namespace pedl::demo
