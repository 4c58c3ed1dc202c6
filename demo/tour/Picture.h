#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"

#include <string>

namespace pedl::demo {

/// What a picture says in words, each one line of UTF-8 that is cut where the picture ends.
struct Caption {
    std::string title;
    std::string settings;
    std::string listen; ///< what to listen for
};

/// Draws a spectrogram of `output`, over it the cut-off and, where it matters, the output gain on a
/// scale of its own, below it the waveforms before and after, and writes it as a PNG file. Where
/// left and right are moved apart each channel has a spectrogram and waves of its own.
///
/// Throws std::runtime_error with the path and the reason.
void drawPicture(const std::string& path, const Caption& caption, const StereoSound& input,
                 const StereoSound& output, const ModulationTrace& trace);

} // namespace pedl::demo
