#pragma once

#include "demo/StereoSound.h"
#include "demo/tour/Pen.h"
#include "demo/tour/PictureLayout.h"

namespace pedl::demo {

// The sound in a picture: the spectrogram, the scale of its colours, the waveforms.

/// The spectrogram of the panel's channels, with the word for them in its corner.
void drawSpectrogram(cairo_t* pen, const Panel& panel, const StereoSound& sound);

void drawLevelScale(cairo_t* pen, const Rectangle& area);

/// The waveforms before and after, one over the other.
void drawWaves(cairo_t* pen, const Panel& panel, const StereoSound& input,
               const StereoSound& output);

/// Which colour is which wave.
void drawWaveLegend(cairo_t* pen, const Rectangle& waves);

} // namespace pedl::demo
