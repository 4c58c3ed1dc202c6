#pragma once

#include <cstdint>
#include <vector>

#include "resources/packed/PackedRows.h"

namespace pedl::skin {

/// A strip as it was drawn: premultiplied ARGB words, frames one below the other.
struct DrawnStrip {
    std::vector<std::uint32_t> ids; // of all bitmaps that show it
    int scale = 1;
    int width = 0; // of a frame, pixels
    int height = 0;
    int frames = 1;
    Tolerance tolerance;
    std::vector<std::uint32_t> pixels;
};

/// Packs strips into the block that the library embeds. What looks the same is stored once, also
/// where it stands at another place within its frames. The order of the strips does not matter.
///
/// @param threads  how many pack at the same time; the bytes are the same for any number
std::vector<std::uint8_t> packSkin(const std::vector<DrawnStrip>& strips, unsigned threads);

} // namespace pedl::skin
