#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include "vstgui/lib/platform/common/pixmansurface.h"

#include <algorithm>
#include <png.h>
#include <unordered_map>
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

constexpr std::size_t kMaxColourMap = 256;

/// A picture ready for libpng: the fewest bytes a pixel that hold it.
struct Packed {
    png_uint_32 format = PNG_FORMAT_BGRA; // native ARGB words, as bytes
    std::vector<uint8_t> rows;
    std::vector<uint32_t> colourMap;
};

/// One byte a pixel where there are few colours.
bool packAsIndices(const std::vector<uint32_t>& pixels, Packed& packed) {
    std::unordered_map<uint32_t, uint8_t> indices;
    for (const uint32_t pixel : pixels) {
        const auto [place, isNew] =
            indices.try_emplace(pixel, static_cast<uint8_t>(packed.colourMap.size()));
        if (isNew)
            packed.colourMap.push_back(pixel);
        if (packed.colourMap.size() > kMaxColourMap)
            return false;
        packed.rows.push_back(place->second);
    }
    packed.format |= PNG_FORMAT_FLAG_COLORMAP;
    return true;
}

Packed pack(const std::vector<uint32_t>& pixels) {
    Packed packed;
    if (packAsIndices(pixels, packed))
        return packed;
    packed = {};
    const bool isOpaque = std::all_of(pixels.begin(), pixels.end(),
                                      [](uint32_t pixel) { return pixel >> 24 == 255; });
    if (isOpaque)
        packed.format = PNG_FORMAT_BGR;
    for (const uint32_t pixel : pixels)
        for (int shift = 0; shift < (isOpaque ? 24 : 32); shift += 8)
            packed.rows.push_back(static_cast<uint8_t>(pixel >> shift));
    return packed;
}

} // namespace

bool writePng(const PixmanSurface& surface, const std::string& path) {
    const int32_t width = surface.widthPixels();
    const int32_t height = surface.heightPixels();
    std::vector<uint32_t> pixels;
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            pixels.push_back(withoutPremultiplication(surface.pixelAt(x, y)));
    const Packed packed = pack(pixels);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = packed.format;
    image.colormap_entries = static_cast<png_uint_32>(packed.colourMap.size());
    return !pixels.empty() && png_image_write_to_file(&image, path.c_str(), 0, packed.rows.data(),
                                                      0, packed.colourMap.data()) != 0;
}

} // namespace VSTGUI
