#pragma once

#include "resources/painter/Colour.h"
#include "resources/painter/Painter.h"

#include <cstdint>

namespace pedl::skin {

/// A powder coat: orange peel, lit from above left, over a slow fall of the light.
struct PowderCoat {
    Colour colour;
    float grain;     // how strongly the peel shows
    float peel;      // its size: sigma in pixels
    float nearLight; // factor above left
    float fall;      // what is lost down to the lower right
    std::uint64_t seed;
};
inline constexpr float kPetrolPeel = 0.42F;

/// Sizes in logical pixels.
Picture powderCoat(int width, int height, int scale, const PowderCoat& coat);

/// Rounded cheeks of the housing, `cheek` wide at the left and the right edge of the picture.
Picture walnutCheeks(int width, int height, int cheek, int scale);

/// Metal brushed from left to right.
Picture brushed(int width, int height, int scale, Colour colour, std::uint64_t seed);

/// Faint black and white grains with transparency, for dark lacquer.
Picture speckle(int width, int height, int scale, std::uint64_t seed);

} // namespace pedl::skin
