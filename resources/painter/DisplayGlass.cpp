#include "resources/painter/Drawings.h"

#include "resources/painter/DisplayWords.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"

#include <cmath>

namespace pedl::skin {

namespace {

/// The softbox in the glass, faded to nothing at every border.
float reflection(float x, float y) {
    const float inside = smoothStep(0.0F, 24.0F, x) * smoothStep(135.0F, 110.0F, x) *
                         smoothStep(0.0F, 12.0F, y) * smoothStep(41.0F, 16.0F, y);
    const float slope = x + y * 0.55F;
    return inside * (0.075F * smoothStep(-6.0F, 3.0F, 62.0F - slope) +
                     0.03F * smoothStep(8.0F, 0.0F, std::fabs(74.0F - slope)));
}

/// The glass from a place on, as wide as the picture.
Picture part(const SkinBitmap& size, int scale, double from) {
    const Patch patch(kDisplay.width, kDisplay.height, scale, 0, 0);
    const Light softbox = linear(palette::kSoftbox);
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(patch.light([&](const Spot& spot) -> Sample {
        return {softbox, reflection(spot.x, spot.y)};
    }),
               -from, 0);
    return canvas.picture();
}

} // namespace

Picture paintDisplayGlass(const SkinBitmap& size, int, int scale) {
    return part(size, scale, 0);
}

Picture paintDisplayGlassLeft(const SkinBitmap& size, int, int scale) {
    return part(size, scale, 0);
}

Picture paintDisplayGlassRight(const SkinBitmap& size, int, int scale) {
    return part(size, scale, kDisplay.width - size.width);
}

} // namespace pedl::skin
