#pragma once

#include "demo/StereoSound.h"

namespace pedl::demo {

// Four bars of 4/4 at 120 BPM each: 8 s at 48 kHz, peak at -3 dBFS. The same bytes on every run.

/// Plucked steel strings: a riff in sixteenths with chord stabs. Karplus and Strong's string with
/// a fractional delay (D. Jaffe, J. Smith, "Extensions of the Karplus-Strong Plucked-String
/// Algorithm", 1983).
StereoSound pluckedRiff();

/// Kick, snare and hats.
StereoSound drumPattern();

/// Four chords of detuned saw waves, wide and bright: something for a filter to work on.
StereoSound pad();

} // namespace pedl::demo
