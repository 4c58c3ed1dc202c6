#include "editor/pictures/SideBySide.h"

#include "editor/pictures/PngReader.h"

#include <algorithm>

namespace pedl::skin {

using VSTGUI::PixmanSurface;

namespace {

constexpr int kGapPixels = 16;
constexpr std::uint32_t kBetween = 0xFFE8E6E0U;

} // namespace

std::unique_ptr<PixmanSurface> sideBySide(const std::string& leftPath,
                                          const std::string& rightPath) {
    const auto left = readPng(leftPath, kBetween), right = readPng(rightPath, kBetween);
    if (!left || !right)
        return nullptr;
    const int width = left->widthPixels();
    auto both =
        std::make_unique<PixmanSurface>(width + kGapPixels + right->widthPixels(),
                                        std::max(left->heightPixels(), right->heightPixels()), 1.0);
    const int stride = both->strideBytes() / static_cast<int>(sizeof(std::uint32_t));
    for (int y = 0; y < both->heightPixels(); ++y) {
        std::uint32_t* const row = both->pixels() + static_cast<std::ptrdiff_t>(y) * stride;
        std::fill_n(row, stride, kBetween);
        for (int x = 0; x < width && y < left->heightPixels(); ++x)
            row[x] = left->pixelAt(x, y);
        for (int x = 0; x < right->widthPixels() && y < right->heightPixels(); ++x)
            row[width + kGapPixels + x] = right->pixelAt(x, y);
    }
    return both;
}

} // namespace pedl::skin
