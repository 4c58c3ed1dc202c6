#pragma once

#include "resources/painter/Painter.h"

#include <functional>

namespace pedl::skin {

/// Receives all frames of a drawing, one below the other. Called by several threads at a time.
using PictureSink = std::function<void(Drawing drawing, int scale, Picture picture)>;

/// Draws everything at both scales, the longest work first, on so many threads. The pictures do not
/// depend on their number.
///
/// Throws what drawing or sink throw, after the other threads have come to an end.
void paintAll(unsigned threads, const PictureSink& sink);

} // namespace pedl::skin
