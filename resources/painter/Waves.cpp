#include "resources/painter/Drawings.h"

#include "resources/painter/DisplayWords.h"
#include "resources/painter/Palette.h"

#include <array>
#include <cmath>
#include <numbers>

namespace pedl::skin {

namespace {

constexpr Rectangle kCurve{10.5, 8, 21, 12};

/// A point of the curve's box: x from 0 (left) to 1, y from 0 (below) to 1.
Point at(double x, double y) {
    return {kCurve.x + kCurve.width * x, kCurve.bottom() - kCurve.height * y};
}

void sine(cairo_t* to) {
    constexpr int kSteps = 40;
    cairo_new_sub_path(to);
    for (int i = 0; i <= kSteps; ++i) {
        const double x = static_cast<double>(i) / kSteps;
        const Point point = at(x, 0.5 + 0.5 * std::sin(2 * std::numbers::pi * x));
        cairo_line_to(to, point.x, point.y);
    }
}

void spike(cairo_t* to) {
    const Point start = at(0, 0);
    cairo_move_to(to, start.x, start.y);
    for (const double x : {0.0, 0.5}) {
        const Point up[]{at(x + 0.16, 0), at(x + 0.24, 0.4), at(x + 0.25, 1)};
        const Point down[]{at(x + 0.26, 0.4), at(x + 0.34, 0), at(x + 0.5, 0)};
        cairo_curve_to(to, up[0].x, up[0].y, up[1].x, up[1].y, up[2].x, up[2].y);
        cairo_curve_to(to, down[0].x, down[0].y, down[1].x, down[1].y, down[2].x, down[2].y);
    }
}

void random(cairo_t* to) {
    constexpr std::array kLevels{0.45, 0.9, 0.2, 0.65, 0.0, 0.8, 0.35};
    cairo_new_sub_path(to);
    for (std::size_t i = 0; i < kLevels.size(); ++i)
        for (const std::size_t end : {i, i + 1}) {
            const Point point =
                at(static_cast<double>(end) / static_cast<double>(kLevels.size()), kLevels[i]);
            cairo_line_to(to, point.x, point.y);
        }
}

/// In the order of the LFO's shapes.
Path waveCurve(int wave) {
    switch (wave) {
    case 0:
        return sine;
    case 1:
        return polyline({at(0, 0.5), at(0.25, 1), at(0.75, 0), at(1, 0.5)});
    case 2:
        return polyline({at(0, 0), at(0.5, 1), at(0.5, 0), at(1, 1), at(1, 0)});
    case 3:
        return polyline({at(0, 0), at(0, 1), at(0.5, 0), at(0.5, 1), at(1, 0)});
    case 4:
        return polyline({at(0, 0), at(0, 1), at(0.5, 1), at(0.5, 0), at(1, 0), at(1, 1)});
    case 5:
        return spike;
    default:
        return random;
    }
}

/// Points to `direction`: -1 to the wave before, 1 to the next.
Path chevron(double x, double direction) {
    return polyline(
        {{x - direction * 1.2, 11.6}, {x + direction * 1.2, 14}, {x - direction * 1.2, 16.4}});
}

} // namespace

/// Window and open list at once: the list is the strip.
Picture paintWaveList(const SkinBitmap& size, int frame, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    fillGlass(canvas, {0, 0, 42, 28});
    canvas.fill(rectangle({0, 0, 42, 0.5}), solid(palette::kWarmWhite, 0.07));
    canvas.fill(rectangle({0, 27.5, 42, 0.5}), solid(palette::kBlack, 0.6));
    for (const double x : {0.4, 41.6})
        canvas.stroke(polyline({{x, 0}, {x, 28}}), 0.8, solid(palette::kCarriageTop, 0.55));
    canvas.stroke(polyline({{10, 14}, {32, 14}}), 0.5, solid(palette::kAmber, 0.22));
    const Path curve = waveCurve(frame);
    canvas.strokeRound(curve, 5, solid(palette::kAmberGlow, 0.08));
    canvas.strokeRound(curve, 3.2, solid(palette::kAmberGlow, 0.16));
    canvas.strokeRound(curve, 1.5, solid(mix(palette::kAmber, palette::kAmberHot, 0.35F)));
    canvas.stroke(chevron(4, -1), 1, solid(palette::kAmber, 0.6));
    canvas.stroke(chevron(38, 1), 1, solid(palette::kAmber, 0.6));
    canvas.fill(
        polygon({{0, 0}, {26, 0}, {16, 28}, {0, 28}}),
        linear({0, 0}, {14, 26}, {{0, palette::kSoftbox, 0.10}, {1, palette::kSoftbox, 0.01}}));
    return canvas.picture();
}

Picture paintWaveHover(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.fill(roundRect({1, 1, 40, 26}, 2), solid(palette::kAmber, 0.18));
    return canvas.picture();
}

Picture paintWaveChoice(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.stroke(roundRect({1.5, 1.5, 39, 25}, 2), 1, solid(palette::kAmber, 0.95));
    return canvas.picture();
}

} // namespace pedl::skin
