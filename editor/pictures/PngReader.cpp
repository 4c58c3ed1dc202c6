#include "editor/pictures/PngReader.h"

#include <algorithm>
#include <png.h>
#include <vector>

namespace pedl::skin {

using VSTGUI::PixmanSurface;

std::unique_ptr<PixmanSurface> readPng(const std::string& path, std::uint32_t paper) {
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&file, path.c_str()) == 0)
        return nullptr;
    file.format = PNG_FORMAT_BGRA; // native ARGB words, as bytes
    std::vector<std::uint32_t> pixels(std::size_t{file.width} * file.height);
    const auto channel = [paper](int shift) { return static_cast<png_byte>(paper >> shift); };
    const png_color ground{channel(16), channel(8), channel(0)};
    if (png_image_finish_read(&file, &ground, pixels.data(), 0, nullptr) == 0)
        return nullptr;

    const int width = static_cast<int>(file.width), height = static_cast<int>(file.height);
    auto picture = std::make_unique<PixmanSurface>(width, height, 1.0);
    const int stride = picture->strideBytes() / static_cast<int>(sizeof(std::uint32_t));
    for (int y = 0; y < height; ++y)
        std::copy_n(pixels.data() + static_cast<std::ptrdiff_t>(y) * width, width,
                    picture->pixels() + static_cast<std::ptrdiff_t>(y) * stride);
    return picture;
}

} // namespace pedl::skin
