#pragma once

#include "editor/ControlLayout.h"
#include "resources/SkinResources.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <vector>

namespace pedl::skin {

/// A picture of the embedded skin, all its frames, unpacked for a test to measure.
class EmbeddedPicture {
public:
    EmbeddedPicture(std::int32_t id, int scale)
        : row_(embeddedSkin().find(static_cast<std::uint32_t>(id), scale)) {
        if (!row_)
            return;
        pixels_.resize(framePixels() * row_->frames);
        std::vector<bool> isThere(row_->frames);
        const std::function<void(int)> read = [&](int frame) {
            if (frame < 0 || isThere[static_cast<std::size_t>(frame)])
                return;
            const int basis = embeddedSkin().basisOf(*row_, frame);
            read(basis);
            embeddedSkin().unpack(*row_, frame, at(frame), basis < 0 ? nullptr : at(basis));
            isThere[static_cast<std::size_t>(frame)] = true;
        };
        for (int frame = 0; frame < row_->frames; ++frame)
            read(frame);
    }

    [[nodiscard]] bool exists() const { return row_ != nullptr; }
    [[nodiscard]] int width() const { return row_->width; }
    [[nodiscard]] int height() const { return row_->height; } // of a frame
    [[nodiscard]] int frames() const { return row_->frames; }
    [[nodiscard]] std::uint32_t pixel(int frame, int x, int y) const {
        return pixels_[framePixels() * static_cast<std::size_t>(frame) +
                       static_cast<std::size_t>(y * width() + x)];
    }

private:
    [[nodiscard]] std::size_t framePixels() const {
        return std::size_t{row_->width} * row_->height;
    }
    std::uint32_t* at(int frame) {
        return pixels_.data() + framePixels() * static_cast<std::size_t>(frame);
    }

    const PictureRow* row_;
    std::vector<std::uint32_t> pixels_;
};

/// A premultiplied pixel over an opaque one.
inline std::uint32_t over(std::uint32_t upper, std::uint32_t lower) {
    std::uint32_t result = 0xFF000000;
    for (int shift = 0; shift < 24; shift += 8)
        result |=
            ((upper >> shift & 0xFFU) + (lower >> shift & 0xFFU) * (255 - (upper >> 24)) / 255)
            << shift;
    return result;
}

/// Relative luminance of a pixel on black, 0..1, as contrasts are defined on it.
inline double luminance(std::uint32_t pixel) {
    const auto linear = [pixel](int shift) {
        const double value = (pixel >> shift & 0xFFU) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

inline double contrast(double a, double b) {
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// Of a frame's painted pixels, weighted by how much they cover.
inline double meanLuminance(const EmbeddedPicture& picture, int frame) {
    std::array<double, 3> sums{};
    double covered = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const std::uint32_t pixel = picture.pixel(frame, x, y);
            covered += pixel >> 24;
            for (std::size_t i = 0; i < sums.size(); ++i)
                sums[i] += pixel >> (8 * i) & 0xFFU;
        }
    std::uint32_t mean = 0;
    for (std::size_t i = 0; i < sums.size(); ++i)
        mean |= static_cast<std::uint32_t>(sums[i] / covered * 255.0) << (8 * i);
    return luminance(mean);
}

} // namespace pedl::skin
