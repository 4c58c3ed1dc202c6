#include "tests/support/toolkit/SampleSkin.h"

#include "tests/support/toolkit/ShapePainter.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

#include <array>
#include <numbers>
#include <optional>

namespace pedl::test {

namespace {

constexpr Ink kAmber{0.98, 0.70, 0.26, 1.0};
constexpr Ink kShade{0.0, 0.0, 0.0, 0.45};

using Draw = void (*)(ShapePainter& painter, const PictureSize& size, int index, double top);

void drawBackground(ShapePainter& p, const PictureSize& size, int, double) {
    p.box(-1, -1, size.width + 1, size.height + 1, 0, grey(0.28));
    p.box(6, 36, size.width - 6, size.height - 6, 5, grey(0.16));
}

void drawKnobBody(ShapePainter& p, const PictureSize& size, int, double top) {
    const double middle = size.width / 2.0;
    p.disc(middle, top + middle + 1, middle - 2, kShade);
    p.disc(middle, top + middle, middle - 3, grey(0.10));
    p.disc(middle, top + middle, middle - 4, grey(0.42));
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

void drawGroove(ShapePainter& p, const PictureSize& size, int, double top) {
    p.box(0, top, size.width, top + size.height, 4, grey(0.38));
    p.box(1, top + 1, size.width - 1, top + size.height - 1, 3, grey(0.10));
}

/// A cap in one of the places that the longer side has.
void drawSwitch(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawGroove(p, size, index, top);
    const bool isUpright = size.height > size.width;
    const double stepX = isUpright ? 0 : (size.width - 4.0) / size.count;
    const double stepY = isUpright ? (size.height - 4.0) / size.count : 0;
    const double left = 2 + stepX * index, capTop = top + 2 + stepY * index;
    p.box(left, capTop, isUpright ? size.width - 2 : left + stepX,
          isUpright ? capTop + stepY : top + size.height - 2, 3, grey(0.45));
    p.disc(left + (isUpright ? size.width / 2.0 - 2 : stepX / 2),
           capTop + (isUpright ? stepY / 2 : size.height / 2.0 - 2), 2, kAmber);
}

/// A cap with a lamp, lit in the second picture; of three pictures the outer ones light a side.
void drawButton(ShapePainter& p, const PictureSize& size, int index, double top) {
    drawGroove(p, size, index, top);
    p.box(2, top + 2, size.width - 2, top + size.height - 2, 3, grey(0.45));
    const int lit = size.count == 2 ? (index == 1 ? 1 : -1) : index;
    for (int lamp = 0; lamp < 3; ++lamp)
        if (size.count == 3 ? lamp != 1 : lamp == 1)
            p.disc(size.width * (lamp + 1) / 4.0, top + size.height / 2.0, 3,
                   lamp == lit ? kAmber : grey(0.15));
}

void drawLamp(ShapePainter& p, const PictureSize& size, int index, double top) {
    const double x = size.width / 2.0, y = top + size.height / 2.0;
    const double light = static_cast<double>(index) / (size.count - 1);
    p.disc(x, y, x - 2.5, grey(0.08));
    p.disc(x, y, x - 3.5, {0.22 + 0.76 * light, 0.16 + 0.54 * light, 0.08 + 0.18 * light, 1.0});
    p.disc(x, y, x - 0.5, {0.3 * light, 0.2 * light, 0.1 * light, 0.3 * light}); // its glow
}

void drawAmber(ShapePainter& p, const PictureSize& size, int, double top) {
    p.box(0, top, size.width, top + size.height, 3.5, kAmber);
    p.box(2, top + 2, size.width - 2, top + size.height - 2, 2, grey(0.12));
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
    {{7,      7,      1},     drawAmber},
    {{60,     18,     3},     drawSwitch},
    {{18,     42,     3},     drawSwitch},
    {{40,     18,     2},     drawButton},
    {{40,     18,     2},     drawButton},
    {{44,     18,     3},     drawButton},
    {{16,     16,     8},     drawLamp},
    {{76,     18,     1},     drawGroove},
    {{240,    120,    1},     drawAmber},
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
