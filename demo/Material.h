#pragma once

#include "demo/StereoSound.h"

#include <string>
#include <vector>

namespace pedl::demo {

// Four bars of 4/4 at 120 BPM each: 8 s at 48 kHz, peak at -3 dBFS. The same bytes on every run.

/// Plucked steel strings: a riff in sixteenths with chord stabs.
StereoSound pluckedRiff();

/// Kick, snare and hats.
StereoSound drumPattern();

/// Four chords of detuned saw waves, wide and bright: something for a filter to work on.
StereoSound pad();

/// A picked bass in eighths with ghost notes, in the middle.
StereoSound bassLine();

/// One voice that glides through an octave and changes its vowel, in the middle.
StereoSound voiceGlide();

/// Clean funk guitar: ninth chords in sixteenths, half of the strokes muted, accents loud.
StereoSound funkGuitar();

/// What all of them are called: "riff", "drums", "pad", "bass", "voice", "funk".
const std::vector<std::string>& materialNames();

/// One by its name, which is one of these.
StereoSound material(const std::string& name);

} // namespace pedl::demo
