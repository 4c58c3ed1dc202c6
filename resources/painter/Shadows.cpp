#include "resources/painter/FaceParts.h"

#include "resources/painter/FacePlaces.h"
#include "resources/painter/KnobSizes.h"
#include "resources/painter/Palette.h"

#include <algorithm>
#include <array>

namespace pedl::skin {

namespace {

/// What stands up throws a short dark shadow where it touches and a long faint one.
struct Standing {
    double radius, height, strength;
};

void drawShadow(Canvas& canvas, const KnobPlace& place, const Standing& part) {
    const double height = part.height;
    canvas.soft(circle(place.x, place.y, part.radius + 0.4),
                {palette::kContactShadow, 0.9 * part.strength, std::max(1.0, 0.22 * height),
                 0.10 * height, 0.14 * height});
    canvas.soft(
        circle(place.x, place.y, 0.97 * part.radius),
        {palette::kWarmShadow, 0.75 * part.strength, 0.42 * height, 0.42 * height, 0.58 * height});
}

constexpr Standing kEncoderStands{kEncoderRadius + 0.5, 9, 0.5};
constexpr Standing kLargeStands{kLargeRadius, 9, 0.5};
constexpr Standing kMediumStands{kMediumRadius, 7, 0.5};
constexpr Standing kSmallStands{kSmallRadius, 5.5, 0.62};
constexpr Standing kSmallStandsOnIvory{kSmallRadius, 5.5, 0.5};
constexpr Standing kFootSwitchStands{23.7, 5, 0.8};

void drawSeat(Canvas& canvas, const Seat& seat) {
    canvas.soft(roundRect(seat.box.inset(0.5), seat.radius),
                {palette::kWarmShadow, 0.55, 1.0, 0.7, 1.1});
    if (seat.lip)
        canvas.stroke(roundRect(seat.box.inset(-0.2), 2.6), 0.6,
                      linear({seat.box.x, seat.box.y}, {seat.box.x + 8, seat.box.bottom()},
                             {{0, palette::kLitEdge, 0},
                              {0.6, palette::kLitEdge, 0},
                              {1, palette::kLitEdge, 0.75}}));
}

} // namespace

void drawShadows(Canvas& canvas) {
    for (const KnobPlace& place : kEncoderPlaces)
        drawShadow(canvas, place, kEncoderStands);
    for (const KnobPlace& place : kLargePlaces)
        drawShadow(canvas, place, kLargeStands);
    for (const KnobPlace& place : kMediumPlaces)
        drawShadow(canvas, place, kMediumStands);
    for (const KnobPlace& place : kSmallPlaces)
        drawShadow(canvas, place, kSmallStands);
    drawShadow(canvas, kExtendPlace, kSmallStandsOnIvory);
    for (const KnobPlace& place : kFootSwitchPlaces)
        drawShadow(canvas, place, kFootSwitchStands);
    for (const Seat& seat : kSeatPlaces)
        drawSeat(canvas, seat);
    for (const Point& corner : kSlidePlaces)
        canvas.soft(roundRect({corner.x, corner.y, 40, 12}, 3),
                    {palette::kBlack, 0.6, 0.9, 0.6, 0.9});
    for (const Point& lamp : kLampPlaces)
        canvas.soft(circle(lamp.x, lamp.y, 5.7), {palette::kContactShadow, 0.6, 0.8, 0.6, 0.9});
}

} // namespace pedl::skin
