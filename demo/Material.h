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

/// Four chords of detuned saw waves, wide and bright: something for a filter to work on. The last
/// one fades out.
StereoSound pad();

/// A picked bass in eighths with ghost notes, in the middle.
StereoSound bassLine();

/// One voice that glides through an octave and changes its vowel, in the middle.
StereoSound voiceGlide();

/// Clean funk guitar: ninth chords in sixteenths, half of the strokes muted, accents loud.
StereoSound funkGuitar();

/// Open chords on steel strings, a stroke a bar, loud and soft in turn, that ring as they die away.
/// For the demonstration of what follows the level; no program is made for it.
StereoSound ringingChords();

/// What those are called that programs are made for: "riff", "drums", "pad", "bass", "voice",
/// "funk".
const std::vector<std::string>& materialNames();

/// One by its name, which is one of these.
StereoSound material(const std::string& name);

} // namespace pedl::demo
