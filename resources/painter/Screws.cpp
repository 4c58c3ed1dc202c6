#include "resources/painter/FaceParts.h"

#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"
#include "resources/painter/Profile.h"
#include "resources/painter/Turned.h"

#include <array>

namespace pedl::skin {

namespace {

constexpr double kSize = 12;
constexpr float kRadius = 4.7F;
constexpr float kSocket = 1.9F; // half across the flats

float socketDistance(PointerPlace place) {
    constexpr float kHalf = 0.5F;
    constexpr float kRoot = 0.8660254F; // sine of 60 degrees
    const float x = std::fabs(place.across);
    const float a = std::fabs(kHalf * place.across + kRoot * place.along);
    const float b = std::fabs(kHalf * place.across - kRoot * place.along);
    return std::max({x, a, b}) - kSocket;
}

/// A turned screw with a hexagon socket.
Picture screw(float turn, int scale) {
    static const Profile kProfile{{0.0F, 1.5F}, {3.6F, 1.2F}, {4.4F, 0.4F}, {4.7F, 0.0F}};
    const Patch patch(kSize, kSize, scale, kSize / 2, kSize / 2);
    const Pointer pointer(turn);
    const Field relief =
        patch.relief(0.15, [](float x, float y) { return kProfile(Polar(x, y).radius); });
    return patch.light(disc(kRadius), [&](const Spot& spot) {
        const Polar place(spot.x, spot.y);
        const Facet facet = patch.facet(relief, spot);
        const Light albedo = linear(palette::kAluminium) * 0.82F;
        const Light head = mix(metal(facet, albedo), cutMetal(facet, albedo, -place.y, place.x),
                               smoothStep(3.9F, 3.4F, place.radius));
        const Light socket =
            grey(0.012F + 0.10F * smoothStep(-1.5F, 2.2F, spot.x * 0.6F + spot.y * 0.8F));
        return mix(head, socket, patch.cover(socketDistance(pointer.place(spot.x, spot.y))));
    });
}

constexpr std::array kPlaces{Point{18, 10}, Point{503, 10}, Point{18, 480}, Point{503, 480}};

} // namespace

void drawScrews(Canvas& canvas) {
    float turn = 0.4F; // nobody tightens all of them alike
    for (const Point& place : kPlaces) {
        canvas.soft(circle(place.x, place.y, 5.3), {palette::kSoftShadow, 0.6, 0.9, 0.4, 0.6});
        canvas.put(screw(turn, canvas.scale()), place.x - kSize / 2, place.y - kSize / 2);
        turn += 0.7F;
    }
}

} // namespace pedl::skin
