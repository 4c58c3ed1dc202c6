#include "resources/painter/FaceParts.h"

#include "resources/painter/FacePlaces.h"
#include "resources/painter/KnobSizes.h"
#include "resources/painter/Palette.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pedl::skin {

namespace {

/// Ticks of a knob's scale.
struct Scale {
    double from, to; // radii
    double width;
    Colour ink;
};
constexpr Scale kLargeTicks{kLargeRadius + 1.8, kLargeRadius + 4.0, 0.8, palette::kInk};
constexpr Scale kMediumTicks{kMediumRadius + 1.7, kMediumRadius + 3.5, 0.7, palette::kInk};
constexpr Scale kSmallTicks{kSmallRadius + 1.4, kSmallRadius + 2.7, 0.6, palette::kPrint};
constexpr Scale kSmallTicksOnIvory{kSmallRadius + 1.4, kSmallRadius + 2.7, 0.6, palette::kInk};

void drawTick(Canvas& canvas, const KnobPlace& place, double degrees, const Scale& scale,
              double alpha) {
    const double angle = degrees * std::numbers::pi / 180;
    const auto at = [&](double radius) {
        return Point{place.x + radius * std::sin(angle), place.y - radius * std::cos(angle)};
    };
    // At scale 1 thinner ones would fade.
    const double width = canvas.scale() == 1 ? std::max(scale.width, 0.9) : scale.width;
    canvas.stroke(polyline({at(scale.from), at(scale.to)}), width, solid(scale.ink, alpha));
}

/// Eleven ticks; the ends, and the middle of a scale that has one, are heavier.
void drawScale(Canvas& canvas, const KnobPlace& place, const Scale& scale) {
    constexpr int kLast = 10;
    for (int i = 0; i <= kLast; ++i) {
        if (place.isTopCovered && 2 * i == kLast)
            continue;
        const bool major = i == 0 || i == kLast || (place.bipolar && 2 * i == kLast);
        Scale tick = scale;
        if (major) {
            tick.width *= 1.5;
            tick.to += 0.7;
        }
        drawTick(canvas, place, -135 + 27 * i, tick, major ? 0.9 : 0.72);
    }
}

/// Minus and plus on whole pixels.
void drawSigns(Canvas& canvas, const KnobPlace& place, double radius) {
    const double side = radius * std::numbers::sqrt2 / 2;
    const double y = std::nearbyint(std::nearbyint(place.y + side) - 0.5);
    for (const int sign : {-1, 1}) {
        const double x = std::nearbyint(place.x + sign * side - 0.5);
        canvas.fill(rectangle({x - 1, y, 3, 1}), palette::kInk);
        if (sign > 0)
            canvas.fill(rectangle({x, y - 1, 1, 3}), palette::kInk);
    }
}

void drawEncoderScale(Canvas& canvas, const KnobPlace& place) {
    constexpr double kPanelEdge = 107; // nothing is printed below
    for (int i = 0; i < 40; ++i) {
        const double degrees = 9.0 * i;
        if (place.y - 39 * std::cos(degrees * std::numbers::pi / 180) > kPanelEdge)
            continue;
        const bool isLong = i % 10 == 0 && i > 0; // the name stands over the first
        const double from = kEncoderRadius + 3.2;
        drawTick(canvas, place, degrees, {from, from + (isLong ? 3 : 2), 0.7, palette::kInk}, 0.55);
    }
}

} // namespace

void drawScales(Canvas& canvas) {
    for (const KnobPlace& place : kEncoderPlaces)
        drawEncoderScale(canvas, place);
    for (const KnobPlace& place : kLargePlaces) {
        drawScale(canvas, place, kLargeTicks);
        if (place.signs)
            drawSigns(canvas, place, 28);
    }
    for (const KnobPlace& place : kMediumPlaces) {
        drawScale(canvas, place, kMediumTicks);
        if (place.signs)
            drawSigns(canvas, place, 22);
    }
    for (const KnobPlace& place : kSmallPlaces)
        drawScale(canvas, place, kSmallTicks);
    drawScale(canvas, kExtendPlace, kSmallTicksOnIvory);
}

} // namespace pedl::skin
