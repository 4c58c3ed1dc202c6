#include "resources/painter/FaceParts.h"

#include "resources/painter/DisplayWords.h"
#include "resources/painter/Materials.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"

#include <initializer_list>

namespace pedl::skin {

namespace {

constexpr int kCheek = 12;
constexpr Rectangle kPlate{kCheek, 0, kFaceWidth - 2 * kCheek, 492};
constexpr PowderCoat kIvoryCoat{palette::kIvory, 0.0056F, 0.40F, 1.035F, 0.11F, 9};
constexpr PowderCoat kPetrolCoat{palette::kPetrol, 0.0050F, kPetrolPeel, 1.10F, 0.20F, 19};

void drawPlate(Canvas& canvas) {
    canvas.put(walnutCheeks(kFaceWidth, kFaceHeight, kCheek, canvas.scale()), 0, 0);
    const Path plate = roundRect(kPlate, 3);
    canvas.soft(plate, {palette::kBlack, 0.55, 2.2, 1.2, 3});
    canvas.clipped(plate, [&] {
        canvas.put(powderCoat(kFaceWidth, kFaceHeight, canvas.scale(), kIvoryCoat), 0, 0);
        const Rectangle top{kPlate.x, 0, kPlate.width, 2.5};
        canvas.fill(rectangle(top),
                    vertical(top, {{0, palette::kLitEdge, 0.9}, {1, palette::kLitEdge, 0}}));
        canvas.fill(rectangle({kPlate.x, 0, 2, kPlate.height}),
                    linear({kPlate.x, 0}, {kPlate.x + 2, 0},
                           {{0, palette::kLitEdge, 0.75}, {1, palette::kLitEdge, 0}}));
        canvas.fill(rectangle({kPlate.right() - 2, 0, 2, kPlate.height}),
                    linear({kPlate.right() - 2, 0}, {kPlate.right(), 0},
                           {{0, palette::kIvoryShade, 0}, {1, palette::kIvoryShade, 0.55}}));
    });
}

/// A recessed panel with its lit and its shaded rim.
void drawPanel(Canvas& canvas, const Picture& coat, Rectangle box, double radius) {
    const Path panel = roundRect(box, radius);
    canvas.clipped(panel, [&] { canvas.put(coat, 0, 0); });
    canvas.softInside(panel, {palette::kBlack, 0.75, 2.2, 1.6, 2.2});
    canvas.stroke(roundRect(box.inset(-0.5), radius + 0.5), 1,
                  linear({box.x, box.y}, {box.x + box.width * 0.12, box.bottom()},
                         {{0, palette::kRimDark, 0.75},
                          {0.5, palette::kRim, 0.5},
                          {1, palette::kLitEdge, 0.75}}));
}

constexpr double kBezel = 3; // width of the frame round a window

Picture bezelFrame(Rectangle box, double radius, int scale) {
    const Patch patch(box.width, box.height, scale, box.width / 2, box.height / 2);
    const auto halfWidth = static_cast<float>(box.width / 2);
    const auto halfHeight = static_cast<float>(box.height / 2);
    const auto corner = static_cast<float>(radius);
    constexpr auto kBand = static_cast<float>(kBezel);
    const auto outer = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth, halfHeight, corner);
    };
    const auto inner = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth - kBand, halfHeight - kBand,
                                 std::max(corner - kBand, 1.0F));
    };
    const Field relief = patch.relief(0.2, [&](float x, float y) {
        return 1.5F * smoothStep(0.2F, -1.2F, outer(x, y)) -
               2.2F * smoothStep(0.9F, -0.6F, inner(x, y));
    });
    return patch.light([&](const Spot& spot) -> Sample {
        if (inner(spot.x, spot.y) < -2.0F) // glass goes there
            return {};
        const Facet facet = patch.facet(relief, spot);
        const Light bronze = linear(palette::kBronze);
        return {mix(dielectric(facet, bronze, 0.3F), metal(facet, bronze), 0.75F),
                patch.cover(outer(spot.x, spot.y))};
    });
}

/// Bronze frame and dark glass; `inGlass` draws what lies behind it.
template <class Draw>
void drawWindow(Canvas& canvas, Rectangle box, double radius, Draw&& inGlass) {
    canvas.soft(roundRect(box, radius), {palette::kSoftShadow, 0.45, 2.0, 1.2, 1.8});
    canvas.put(bezelFrame(box, radius, canvas.scale()), box.x, box.y);
    const Path glass = roundRect(box.inset(kBezel), std::max(radius - kBezel, 1.0));
    canvas.clipped(glass, [&] { fillGlass(canvas, box.inset(kBezel)); });
    canvas.softInside(glass, {palette::kBlack, 0.9, 1.6, 0.8, 1.4});
    canvas.clipped(glass, inGlass);
    // The lamps' light on the inner lip
    constexpr double kLip = 2.4;
    canvas.stroke(roundRect(box.inset(kLip), radius - 2.5), 0.9,
                  vertical(box, {{0, palette::kDialLamp, 0.10},
                                 {0.5, palette::kDialLamp, 0.05},
                                 {1, palette::kLipLight, 0.42}}));
}

/// What no control draws must look unlit, but for "Hz": see DisplayWords.h.
void drawDisplayGlass(Canvas& canvas) {
    fillGlass(canvas, kDisplay);
    const auto cellLeft = [](int cell) { return kDisplay.x + kCellWidth * cell; };
    for (int cell = 0; cell < kCells; ++cell)
        drawUnlitCell(canvas, cellLeft(cell), kDisplay.y);
    drawLitWord(canvas, cellLeft(kWordHertz.cell), kDisplay.y, kWordHertz, kAmberLight);
    for (const DisplayWord* word : {&kWordNote, &kWordTempo})
        drawUnlitWord(canvas, cellLeft(word->cell), kDisplay.y, *word);
}

void drawDialGlass(Canvas& canvas) {
    canvas.placed(260, 203, 1, [&] {
        cairo_scale(canvas.context(), 1, 0.075);
        canvas.fill(rectangle({-260, -260, 520, 520}), radial({0, 0}, 250,
                                                              {{0, palette::kDialLamp, 0.13},
                                                               {0.7, palette::kDialLamp, 0.06},
                                                               {1, palette::kDialLamp, 0}}));
    });
    canvas.fill(
        polygon({{24, 184}, {497, 184}, {497, 190}, {24, 196}}),
        linear({24, 0}, {420, 0}, {{0, palette::kSoftbox, 0.09}, {1, palette::kSoftbox, 0.02}}));
}

void drawWaveSeat(Canvas& canvas) {
    const Rectangle seat{70, 125.2, 44, 29.8};
    canvas.fill(roundRect(seat, 2), solid(palette::kBlack, 0.85));
    canvas.stroke(roundRect(seat.inset(0.2), 2), 0.7,
                  vertical(seat, {{0, palette::kBlack, 0.9}, {1, palette::kPetrolLip}}));
}

void drawNamePlate(Canvas& canvas) {
    const Rectangle plate{172, 16, 177, 28};
    canvas.soft(roundRect(plate, 3), {palette::kPlateShadow, 0.5, 1.6, 1, 1.6});
    canvas.clipped(roundRect(plate, 3), [&] {
        canvas.put(brushed(177, 28, canvas.scale(), palette::kChampagne, 5), plate.x, plate.y);
    });
    canvas.stroke(roundRect(plate.inset(0.4), 2.7), 0.8,
                  linear({plate.x, plate.y}, {plate.x + 20, plate.bottom()},
                         {{0, palette::kLitEdge, 0.95},
                          {0.5, palette::kLitEdge, 0.2},
                          {1, palette::kPlateEdge, 0.7}}));
    for (const double x : {178.0, 343.0}) { // rivets
        canvas.soft(circle(x, 30, 1.7), {palette::kRivetShadow, 0.7, 0.6, 0.4, 0.6});
        canvas.fill(
            circle(x, 30, 1.6),
            radial({x - 0.5, 29.4}, 2.2,
                   {{0, palette::kLitEdge}, {0.5, palette::kChampagne}, {1, palette::kRivetDark}}));
    }
}

} // namespace

void drawHousing(Canvas& canvas) {
    drawPlate(canvas);
    const Picture petrol = powderCoat(kFaceWidth, kFaceHeight, canvas.scale(), kPetrolCoat);
    drawPanel(canvas, petrol, {24, 110, 219, 65}, 4);
    drawPanel(canvas, petrol, {332, 110, 165, 65}, 4);
    drawPanel(canvas, petrol, {24, 416, 473, 74}, 5);
    drawWindow(canvas, {183, 50, 155, 58}, 4, [&] { drawDisplayGlass(canvas); });
    drawWindow(canvas, {24, 184, 473, 38}, 5, [&] { drawDialGlass(canvas); });
    drawWaveSeat(canvas);
    drawNamePlate(canvas);
}

} // namespace pedl::skin
