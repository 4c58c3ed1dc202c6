#include "resources/painter/Drawings.h"
#include "resources/painter/FaceParts.h"

#include "resources/painter/Materials.h"
#include "resources/painter/Palette.h"

#include <array>

namespace pedl::skin {

namespace {

/// Dark lacquer.
void drawGround(Canvas& canvas, Rectangle box) {
    canvas.fill(
        rectangle(box),
        vertical(box, {{0, palette::kBarTop}, {0.08, palette::kBar}, {1, palette::kBarBottom}}));
    canvas.put(
        speckle(static_cast<int>(box.width), static_cast<int>(box.height), canvas.scale(), 5),
        box.x, box.y);
}

/// The hint line's well.
void drawWell(Canvas& canvas, Rectangle box) {
    const Path well = roundRect(box, 2);
    canvas.fill(well, solid(palette::kBlack, 0.42));
    canvas.softInside(well, {palette::kBlack, 0.7, 1.2, 0.5, 1});
    canvas.stroke(roundRect(box.inset(0.25), 2), 0.5,
                  vertical(box, {{0, palette::kBlack, 0.6}, {1, palette::kWarmWhite, 0.22}}));
}

void drawTextWindow(Canvas& canvas, Rectangle box) {
    const Path window = roundRect(box, 1.8);
    const Rectangle rim = box.inset(-1);
    canvas.fill(roundRect(rim, 2.6),
                vertical(rim, {{0, palette::kBlack, 0.9}, {1, palette::kWarmWhite, 0.25}}));
    canvas.fill(
        window,
        vertical(box, {{0, palette::kCreamLow}, {0.35, palette::kCream}, {1, palette::kCream}}));
    canvas.softInside(window, {palette::kCreamShade, 0.55, 1.2, 0.6, 1.2});
}

// Where a groove parts the groups of keys
constexpr std::array kGrooves{Point{78, 529},  Point{166, 529}, Point{365, 529}, Point{408, 529},
                              Point{452, 529}, Point{318, 511}, Point{427, 511}};

} // namespace

void drawBar(Canvas& canvas) {
    drawGround(canvas, {0, kBarTop, kFaceWidth, kFaceHeight - kBarTop});
    canvas.fill(rectangle({0, kBarTop, kFaceWidth, 1}), solid(palette::kBlack, 0.85));
    canvas.fill(rectangle({0, kBarTop + 1, kFaceWidth, 0.6}), solid(palette::kWarmWhite, 0.18));
    drawWell(canvas, {3, 493, 493, 15});
    drawTextWindow(canvas, {175, 511, 134, 14});   // MIDI controller
    drawTextWindow(canvas, {85, 511, 35, 14});     // MIDI channel
    drawTextWindow(canvas, {175, 529, 147, 13.5}); // preset's name and menu
    canvas.fill(rectangle({309.5, 530, 0.6, 12}), palette::kCreamLine);
    canvas.fill(arrowHead({{316.5, 538.5}, {0, 1}, 4.5, 3.3}, canvas.scale()), palette::kCreamSign);
    for (const Point& groove : kGrooves) {
        canvas.fill(rectangle({groove.x, groove.y, 1, 13}), solid(palette::kBlack, 0.75));
        canvas.fill(rectangle({groove.x + 1, groove.y, canvas.scale() == 1 ? 1.0 : 0.5, 13}),
                    solid(palette::kWarmWhite, 0.14));
    }
}

/// The bar's ground alone.
Picture paintBarGround(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    drawGround(canvas,
               {0, 0, static_cast<double>(size.width), static_cast<double>(size.frameHeight)});
    return canvas.picture();
}

} // namespace pedl::skin
