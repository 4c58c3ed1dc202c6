#pragma once

#include "demo/ModulationTrace.h"
#include "demo/tour/Pen.h"
#include "demo/tour/PictureLayout.h"

#include <string>
#include <vector>

namespace pedl::demo {

/// A line that stands for a trace.
struct LegendEntry {
    std::string text;
    Colour colour;
    double widthPixels;
};

/// Draws over the spectrograms what moved the sound: the cut-off, and the output gain on a scale of
/// its own where it matters. In the panel of one channel its own lines are bright and those of the
/// other one faint, to be compared.
///
/// @return what the legend says
std::vector<LegendEntry> drawTraces(cairo_t* pen, const PictureLayout& layout,
                                    const ModulationTrace& trace);

} // namespace pedl::demo
