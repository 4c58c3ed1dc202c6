#pragma once

#include "resources/SkinTable.h"

#include <cstdint>
#include <vector>

namespace pedl::skin {

/// Premultiplied ARGB, a word a pixel (alpha in the highest byte), row by row without gaps.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Draws one frame of a drawing. The same bytes whenever, wherever and beside whatever it runs.
///
/// Thread: any number at the same time.
///
/// @param scale  device pixels per logical pixel: 1 or 2
Picture paintFrame(Drawing drawing, int frame, int scale);

/// Draws all frames of a drawing, one below the other.
Picture paint(Drawing drawing, int scale);

} // namespace pedl::skin
