#include "tests/support/toolkit/ShapePainter.h"

#include <algorithm>
#include <cmath>

namespace pedl::test {

namespace {

Ink mixed(Ink a, Ink b, double share) {
    return {std::lerp(a.red, b.red, share), std::lerp(a.green, b.green, share),
            std::lerp(a.blue, b.blue, share), std::lerp(a.alpha, b.alpha, share)};
}

/// Not `hypot`, which asks for a newer C library than a plug-in may need.
double length(double x, double y) {
    return std::sqrt(x * x + y * y);
}

} // namespace

ShapePainter::ShapePainter(int width, int height, int scale)
    : scale_(scale), widthPixels_(width * scale), heightPixels_(height * scale),
      pixels_(static_cast<std::size_t>(widthPixels_) * static_cast<std::size_t>(heightPixels_)) {}

void ShapePainter::disc(double x, double y, double radius, Ink ink) {
    fill(
        x - radius, y - radius, x + radius, y + radius,
        [=](double px, double py) { return length(px - x, py - y) - radius; },
        [=](double) { return ink; });
}

void ShapePainter::ring(double x, double y, double radius, double lineWidth, Ink ink) {
    const double reach = radius + lineWidth;
    fill(
        x - reach, y - reach, x + reach, y + reach,
        [=](double px, double py) {
            return std::abs(length(px - x, py - y) - radius) - lineWidth / 2;
        },
        [=](double) { return ink; });
}

void ShapePainter::line(double fromX, double fromY, double toX, double toY, double lineWidth,
                        Ink ink) {
    const double dx = toX - fromX, dy = toY - fromY;
    const double lengthSquared = std::max(dx * dx + dy * dy, 1e-9);
    fill(
        std::min(fromX, toX) - lineWidth, std::min(fromY, toY) - lineWidth,
        std::max(fromX, toX) + lineWidth, std::max(fromY, toY) + lineWidth,
        [=](double px, double py) {
            const double along =
                std::clamp(((px - fromX) * dx + (py - fromY) * dy) / lengthSquared, 0.0, 1.0);
            return length(px - fromX - along * dx, py - fromY - along * dy) - lineWidth / 2;
        },
        [=](double) { return ink; });
}

void ShapePainter::box(double left, double top, double right, double bottom, double cornerRadius,
                       Ink upper, Ink lower) {
    const double middleX = (left + right) / 2, middleY = (top + bottom) / 2;
    const double halfWidth = (right - left) / 2 - cornerRadius;
    const double halfHeight = (bottom - top) / 2 - cornerRadius;
    fill(
        left, top, right, bottom,
        [=](double px, double py) {
            const double dx = std::abs(px - middleX) - halfWidth;
            const double dy = std::abs(py - middleY) - halfHeight;
            return length(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) -
                   cornerRadius;
        },
        [=](double py) {
            return mixed(upper, lower, std::clamp((py - top) / (bottom - top), 0.0, 1.0));
        });
}

/// @param distance  logical pixels from the shape's edge, negative inside
template <typename Distance, typename Colour>
void ShapePainter::fill(double left, double top, double right, double bottom, Distance distance,
                        Colour colour) {
    const auto first = [this](double place) {
        return std::max(static_cast<int>(std::floor(place * scale_)) - 1, 0);
    };
    const auto last = [this](double place, int limit) {
        return std::min(static_cast<int>(std::ceil(place * scale_)) + 1, limit);
    };
    for (int y = first(top); y < last(bottom, heightPixels_); ++y)
        for (int x = first(left); x < last(right, widthPixels_); ++x) {
            const double px = (x + 0.5) / scale_, py = (y + 0.5) / scale_;
            const double coverage = std::clamp(0.5 - distance(px, py) * scale_, 0.0, 1.0);
            if (coverage > 0.0)
                blend(x, y, colour(py), coverage);
        }
}

void ShapePainter::blend(int x, int y, Ink ink, double coverage) {
    std::uint32_t& pixel =
        pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(widthPixels_) +
                static_cast<std::size_t>(x)];
    const double keep = 1.0 - ink.alpha * coverage;
    const auto part = [&](int shift, double added) {
        const double old = (pixel >> shift) & 0xFFU;
        const double sum = std::round(old * keep + added * coverage * 255.0);
        return static_cast<std::uint32_t>(std::clamp(sum, 0.0, 255.0)) << shift;
    };
    pixel = part(24, ink.alpha) | part(16, ink.red) | part(8, ink.green) | part(0, ink.blue);
}

} // namespace pedl::test
