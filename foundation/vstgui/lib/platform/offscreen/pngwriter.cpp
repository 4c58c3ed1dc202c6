#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include "vstgui/lib/platform/common/pixmansurface.h"

#include <png.h>
#include <vector>

namespace VSTGUI {

namespace {

/// A stored pixel as PNG has it: not premultiplied.
uint32_t withoutPremultiplication(uint32_t pixel) {
    const uint32_t alpha = pixel >> 24;
    if (alpha == 0)
        return 0;
    const auto channel = [&](int shift) {
        return (((pixel >> shift) & 0xFF) * 255 + alpha / 2) / alpha << shift;
    };
    return alpha << 24 | channel(16) | channel(8) | channel(0);
}

} // namespace

bool writePng(const PixmanSurface& surface, const std::string& path) {
    const int32_t width = surface.widthPixels();
    const int32_t height = surface.heightPixels();
    std::vector<uint32_t> pixels;
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            pixels.push_back(withoutPremultiplication(surface.pixelAt(x, y)));
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_BGRA; // native ARGB words, as bytes
    return !pixels.empty() &&
           png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr) != 0;
}

} // namespace VSTGUI
