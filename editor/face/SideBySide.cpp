#include "editor/face/SideBySide.h"

#include "editor/face/PngReader.h"

#include <algorithm>

namespace pedl::skin {

using VSTGUI::PixmanSurface;

namespace {

constexpr int kGapPixels = 16;
constexpr std::uint32_t kPaper = 0xFFE8E6E0U;

} // namespace

std::unique_ptr<PixmanSurface> sideBySide(const std::string& left, const PixmanSurface& right) {
    const std::unique_ptr<PixmanSurface> read = readPng(left, kPaper);
    if (!read)
        return nullptr;

    const int width = read->widthPixels();
    auto both =
        std::make_unique<PixmanSurface>(width + kGapPixels + right.widthPixels(),
                                        std::max(read->heightPixels(), right.heightPixels()), 1.0);
    const int stride = both->strideBytes() / static_cast<int>(sizeof(std::uint32_t));
    for (int y = 0; y < both->heightPixels(); ++y) {
        std::uint32_t* const row = both->pixels() + static_cast<std::ptrdiff_t>(y) * stride;
        std::fill_n(row, stride, kPaper);
        for (int x = 0; x < width && y < read->heightPixels(); ++x)
            row[x] = read->pixelAt(x, y);
        for (int x = 0; x < right.widthPixels() && y < right.heightPixels(); ++x)
            row[width + kGapPixels + x] = right.pixelAt(x, y);
    }
    return both;
}

} // namespace pedl::skin
