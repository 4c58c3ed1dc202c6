#include "editor/face/SideBySide.h"

#include <algorithm>
#include <png.h>
#include <vector>

namespace pedl::skin {

using VSTGUI::PixmanSurface;

namespace {

constexpr int kGapPixels = 16;
constexpr std::uint32_t kPaper = 0xFFE8E6E0U;

} // namespace

std::unique_ptr<PixmanSurface> sideBySide(const std::string& left, const PixmanSurface& right) {
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&file, left.c_str()) == 0)
        return nullptr;
    file.format = PNG_FORMAT_BGRA; // native ARGB words, as bytes
    std::vector<std::uint32_t> pixels(std::size_t{file.width} * file.height);
    const png_color paper{0xE0, 0xE6, 0xE8}; // where the file is transparent
    if (png_image_finish_read(&file, &paper, pixels.data(), 0, nullptr) == 0)
        return nullptr;

    const int width = static_cast<int>(file.width), height = static_cast<int>(file.height);
    auto both = std::make_unique<PixmanSurface>(width + kGapPixels + right.widthPixels(),
                                                std::max(height, right.heightPixels()), 1.0);
    const int stride = both->strideBytes() / static_cast<int>(sizeof(std::uint32_t));
    for (int y = 0; y < both->heightPixels(); ++y) {
        std::uint32_t* const row = both->pixels() + static_cast<std::ptrdiff_t>(y) * stride;
        std::fill_n(row, stride, kPaper);
        if (y < height)
            std::copy_n(pixels.data() + static_cast<std::ptrdiff_t>(y) * width, width, row);
        for (int x = 0; x < right.widthPixels() && y < right.heightPixels(); ++x)
            row[width + kGapPixels + x] = right.pixelAt(x, y);
    }
    return both;
}

} // namespace pedl::skin
