#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"

#include <string>

namespace pedl::demo {

/// What a picture says in words.
struct Caption {
    std::string title;
    std::string settings; ///< one line; cut where it is longer than the picture is wide
    std::string listen;   ///< what to listen for
};

/// Draws a spectrogram of `output`, over it the cut-off of each channel and the output gain on a
/// scale of its own, below it the waveforms before and after, and writes it as a PNG file.
///
/// Throws std::runtime_error with the path and the reason.
void drawPicture(const std::string& path, const Caption& caption, const StereoSound& input,
                 const StereoSound& output, const ModulationTrace& trace);

} // namespace pedl::demo
