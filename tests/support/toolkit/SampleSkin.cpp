#include "tests/support/toolkit/SampleSkin.h"

#include "tests/support/toolkit/ShapePainter.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace pedl::test {

namespace {

constexpr Ink kAmber{0.98, 0.70, 0.26, 1.0};
constexpr Ink kShade{0.0, 0.0, 0.0, 0.45};
constexpr Ink kLight{0.12, 0.12, 0.12, 0.12};

using Draw = void (*)(ShapePainter& painter, const PictureSize& size, int index, double top);

void drawBackground(ShapePainter& p, const PictureSize& size, int, double) {
    p.box(-1, -1, size.width + 1, size.height + 1, 0, grey(0.20), grey(0.20));
    for (const auto& [top, bottom] :
         {std::pair{36.0, 120.0}, std::pair{126.0, 216.0}, std::pair{222.0, 282.0},
          std::pair{288.0, 404.0}, std::pair{410.0, 536.0}}) {
        p.box(6, top, size.width - 6, bottom, 5, kLight, kLight);
        p.box(7, top + 1, size.width - 7, bottom - 1, 4, grey(0.16), grey(0.16));
    }
}

void drawKnobBody(ShapePainter& p, const PictureSize& size, int, double top) {
    const double middle = size.width / 2.0;
    p.disc(middle, top + middle + 1, middle - 2, kShade);
    p.disc(middle, top + middle, middle - 3, grey(0.10));
    p.disc(middle, top + middle, middle - 4, grey(0.36));
    p.disc(middle, top + middle - 0.5, middle - 6, grey(0.42));
}

void drawKnob(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawKnobBody(p, size, index, top);
    const double middle = size.width / 2.0;
    constexpr double kSweep = 1.5 * std::numbers::pi; // from lower left over the top
    const double angle = kSweep * (static_cast<double>(index) / (size.count - 1) - 0.5);
    const double x = std::sin(angle), y = -std::cos(angle);
    p.line(middle + x * 5, top + middle + y * 5, middle + x * (middle - 7),
           top + middle + y * (middle - 7), 2.5, kAmber);
}

void drawHandle(ShapePainter& p, const PictureSize& size, int, double top) {
    p.disc(size.width / 2.0, top + size.height / 2.0, size.width / 2.0 - 0.5, kAmber);
}

void drawGroove(ShapePainter& p, const PictureSize& size, double top) {
    const double bottom = top + size.height;
    p.box(0, top, size.width, bottom, 4, grey(0.35), grey(0.35));
    p.box(1, top + 1, size.width - 1, bottom - 1, 3, grey(0.10), grey(0.10));
}

void drawCap(ShapePainter& p, double left, double top, double right, double bottom) {
    p.box(left, top, right, bottom, 3, grey(0.62), grey(0.40));
    p.box(left + 1, top + 1, right - 1, bottom - 1, 2, grey(0.50), grey(0.36));
}

void drawHorizontalSwitch(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawGroove(p, size, top);
    const double step = (size.width - 4.0) / size.count, left = 2 + step * index;
    drawCap(p, left, top + 2, left + step, top + size.height - 2);
    p.line(left + step / 2, top + 5.5, left + step / 2, top + size.height - 5.5, 2, kAmber);
}

void drawVerticalSwitch(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawGroove(p, size, top);
    const double step = (size.height - 4.0) / size.count, capTop = top + 2 + step * index;
    drawCap(p, 2, capTop, size.width - 2, capTop + step);
    p.line(5.5, capTop + step / 2, size.width - 5.5, capTop + step / 2, 2, kAmber);
}

void drawOnOff(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawGroove(p, size, top);
    drawCap(p, 2, top + 2, size.width - 2, top + size.height - 2);
    const double x = size.width / 2.0, y = top + size.height / 2.0;
    p.ring(x, y, 4, 1.5, index ? kAmber : grey(0.15));
    p.line(x, y - 4.5, x, y - 1, 1.5, index ? kAmber : grey(0.15));
}

void drawKick(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawGroove(p, size, top);
    const double y = top + index; // goes in by a pixel
    if (index)
        p.box(2, y + 2, size.width - 2, top + size.height - 2, 3, grey(0.30), grey(0.34));
    else
        drawCap(p, 2, y + 2, size.width - 2, top + size.height - 2);
    const double x = size.width / 2.0, middle = y + size.height / 2.0;
    p.line(x - 2, middle - 3.5, x + 2.5, middle, 1.8, kAmber);
    p.line(x + 2.5, middle, x - 2, middle + 3.5, 1.8, kAmber);
}

void drawRocker(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawGroove(p, size, top);
    drawCap(p, 2, top + 2, size.width - 2, top + size.height - 2);
    const double y = top + size.height / 2.0;
    const Ink minus = index == 0 ? kAmber : grey(0.15), plus = index == 2 ? kAmber : grey(0.15);
    p.line(8, y, 14, y, 1.8, minus);
    p.line(size.width - 14.0, y, size.width - 8.0, y, 1.8, plus);
    p.line(size.width - 11.0, y - 3, size.width - 11.0, y + 3, 1.8, plus);
}

void drawLamp(ShapePainter& p, const PictureSize& size, int index, double top) {
    const double x = size.width / 2.0, y = top + size.height / 2.0;
    const double light = static_cast<double>(index) / (size.count - 1);
    const Ink glow{kAmber.red * light * 0.3, kAmber.green * light * 0.3, kAmber.blue * light * 0.3,
                   light * 0.3};
    p.disc(x, y, size.width / 2.0 - 0.5, glow);
    p.disc(x, y, size.width / 2.0 - 2.5, grey(0.08));
    p.disc(x, y, size.width / 2.0 - 3.5,
           {0.22 + 0.76 * light, 0.16 + 0.54 * light, 0.08 + 0.18 * light, 1.0});
}

void drawDisplay(ShapePainter& p, const PictureSize& size, int, double top) {
    p.box(0, top, size.width, top + size.height, 4, grey(0.38), grey(0.38));
    p.box(1, top + 1, size.width - 1, top + size.height - 1, 3, {0.06, 0.13, 0.12, 1.0},
          {0.06, 0.13, 0.12, 1.0});
}

void drawSplash(ShapePainter& p, const PictureSize& size, int, double top) {
    p.box(0, top, size.width, size.height, 8, kAmber, kAmber);
    p.box(1.5, top + 1.5, size.width - 1.5, size.height - 1.5, 7, grey(0.12), grey(0.12));
    double before = size.height / 2.0;
    for (int x = 14; x <= size.width - 14; ++x) { // a tone that dies away
        const double phase = (x - 14) / 28.0 * 2.0 * std::numbers::pi;
        const double y = size.height / 2.0 - 38 * std::exp(-(x - 14) / 80.0) * std::sin(phase);
        if (x > 14)
            p.line(x - 1, before, x, y, 1.8, kAmber);
        before = y;
    }
}

struct PictureRow {
    PictureSize size;
    Draw draw;
};

// clang-format off
constexpr std::array<PictureRow, 13> kRows{{
    // width  height  count   drawn by
    {{521,    544,    1},     drawBackground},
    {{40,     40,     61},    drawKnob},
    {{40,     40,     61},    drawKnob},
    {{40,     40,     1},     drawKnobBody},
    {{7,      7,      1},     drawHandle},
    {{60,     18,     3},     drawHorizontalSwitch},
    {{18,     42,     3},     drawVerticalSwitch},
    {{40,     18,     2},     drawOnOff},
    {{40,     18,     2},     drawKick},
    {{44,     18,     3},     drawRocker},
    {{16,     16,     8},     drawLamp},
    {{76,     18,     1},     drawDisplay},
    {{240,    120,    1},     drawSplash},
}};
// clang-format on

constexpr int kScales = 2;

std::size_t rowOf(std::int32_t id) {
    return static_cast<std::size_t>(id - 1);
}

/// Draws a picture once; it lives until the library goes.
const ShapePainter& drawn(std::int32_t id, std::int32_t scale) {
    static std::array<std::array<std::optional<ShapePainter>, kScales>, kRows.size()> pictures;
    std::optional<ShapePainter>& picture = pictures[rowOf(id)][rowOf(scale)];
    if (!picture) {
        const PictureRow& row = kRows[rowOf(id)];
        picture.emplace(row.size.width, row.size.height * row.size.count, scale);
        for (int index = 0; index < row.size.count; ++index)
            row.draw(*picture, row.size, index, index * row.size.height);
    }
    return *picture;
}

bool lookUp(const VSTGUI::CResourceDescription& resource, std::int32_t scale,
            VSTGUI::ResourceImage& image) {
    const std::int32_t id = resource.u.id;
    if (resource.type != VSTGUI::CResourceDescription::kIntegerType || rowOf(id) >= kRows.size() ||
        rowOf(scale) >= kScales ||
        (scale != 1 && id == static_cast<std::int32_t>(Picture::KnobStripWithoutTwofold)))
        return false;
    const ShapePainter& picture = drawn(id, scale);
    image = {picture.pixels().data(), picture.widthPixels(), picture.heightPixels()};
    return true;
}

} // namespace

PictureSize sizeOf(Picture picture) {
    return kRows[rowOf(static_cast<std::int32_t>(picture))].size;
}

void useSampleSkin() {
    VSTGUI::setResourceLookup(lookUp);
}

VSTGUI::CBitmap* newBitmap(Picture picture) {
    return new VSTGUI::CBitmap(VSTGUI::CResourceDescription(static_cast<std::int32_t>(picture)));
}

} // namespace pedl::test
