#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace pedl::test {

/// A premultiplied colour, each part from 0 to 1.
struct Ink {
    double red = 0.0, green = 0.0, blue = 0.0, alpha = 1.0;
};

/// Grey from 0, black, to 1, white.
constexpr Ink grey(double level) {
    return {level, level, level, 1.0};
}

/// Draws shapes with soft edges into premultiplied ARGB pixels.
///
/// Coordinates are logical pixels; the scale says how many image pixels each has. Edges are as soft
/// as one image pixel, so the same shapes are sharp at every scale.
class ShapePainter {
public:
    ShapePainter(int width, int height, int scale)
        : scale_(scale), widthPixels_(width * scale), heightPixels_(height * scale),
          pixels_(static_cast<std::size_t>(widthPixels_ * heightPixels_)) {}

    /// Round at both ends.
    void line(double fromX, double fromY, double toX, double toY, double lineWidth, Ink ink) {
        const double dx = toX - fromX, dy = toY - fromY;
        const double lengthSquared = std::max(dx * dx + dy * dy, 1e-9);
        fill(std::min(fromY, toY) - lineWidth, std::max(fromY, toY) + lineWidth, ink,
             [=](double x, double y) {
                 const double along =
                     std::clamp(((x - fromX) * dx + (y - fromY) * dy) / lengthSquared, 0.0, 1.0);
                 return length(x - fromX - along * dx, y - fromY - along * dy) - lineWidth / 2;
             });
    }
    void disc(double x, double y, double radius, Ink ink) { line(x, y, x, y, 2 * radius, ink); }
    void box(double left, double top, double right, double bottom, double cornerRadius, Ink ink) {
        fill(top, bottom, ink, [=](double x, double y) {
            const double dx = std::abs(x - (left + right) / 2) - (right - left) / 2 + cornerRadius;
            const double dy = std::abs(y - (top + bottom) / 2) - (bottom - top) / 2 + cornerRadius;
            return length(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) -
                   cornerRadius;
        });
    }

    [[nodiscard]] const std::vector<std::uint32_t>& pixels() const { return pixels_; }
    [[nodiscard]] int widthPixels() const { return widthPixels_; }
    [[nodiscard]] int heightPixels() const { return heightPixels_; }

private:
    /// Not `hypot`, which asks for a newer C library than a plug-in may need.
    static double length(double x, double y) { return std::sqrt(x * x + y * y); }

    /// @param distance  logical pixels from the shape's edge, negative inside
    template <typename Distance> void fill(double top, double bottom, Ink ink, Distance distance) {
        const int first = std::max(static_cast<int>(std::floor(top * scale_)) - 1, 0);
        const int last = std::min(static_cast<int>(std::ceil(bottom * scale_)) + 1, heightPixels_);
        for (int y = first; y < last; ++y)
            for (int x = 0; x < widthPixels_; ++x) {
                const double away = distance((x + 0.5) / scale_, (y + 0.5) / scale_);
                const double coverage = std::clamp(0.5 - away * scale_, 0.0, 1.0);
                if (coverage > 0.0)
                    blend(pixels_[static_cast<std::size_t>(y * widthPixels_ + x)], ink, coverage);
            }
    }
    static void blend(std::uint32_t& pixel, Ink ink, double coverage) {
        const auto part = [&](int shift, double added) {
            const double old = (pixel >> shift) & 0xFFU;
            const double sum = old * (1.0 - ink.alpha * coverage) + added * coverage * 255.0;
            return static_cast<std::uint32_t>(std::clamp(std::round(sum), 0.0, 255.0)) << shift;
        };
        pixel = part(24, ink.alpha) | part(16, ink.red) | part(8, ink.green) | part(0, ink.blue);
    }

    int scale_;
    int widthPixels_, heightPixels_;
    std::vector<std::uint32_t> pixels_;
};

} // namespace pedl::test
