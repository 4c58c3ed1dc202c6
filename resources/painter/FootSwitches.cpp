#include "resources/painter/Drawings.h"

#include "resources/painter/Canvas.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"
#include "resources/painter/Turned.h"
#include "resources/painter/Type.h"

#include <array>
#include <numbers>

namespace pedl::skin {

namespace {

// Radii of the whole switch, before it is drawn a little smaller.
constexpr float kSize = 0.88F;
constexpr float kWasherRadius = 27.0F;
constexpr float kNutHalfFlats = 20.0F;
constexpr float kNutCorner = 22.6F;
constexpr float kRingOuter = 17.4F; // a ring of glass round the plunger
constexpr float kRingInner = 14.9F;

/// What the eye, dazzled by the lit ring, still sees of the metal beside it: the whole switch is
/// darker then, so that its state does not hang on a hue.
constexpr float kBesideRing = 0.45F;
constexpr float kInsideRing = 0.72F; // and of the plunger, which is dark already

/// What is between nut and plunger.
enum class Collar { Gap, DarkRing, LitRing };

/// Where the nut's face ends.
float holeRadius(Collar collar) {
    return collar == Collar::Gap ? 16.2F : kRingOuter;
}

/// Both pictures of a plunger.
struct Plunger {
    float radius, dome;
    bool pressed;
};
constexpr Plunger kUp{14.2F, 4.2F, false};
constexpr Plunger kDown{13.6F, 3.0F, true};

/// Distance to the hexagon, turned by 15 degrees.
float hexagonDistance(float x, float y) {
    static const auto kNormals = [] {
        std::array<std::array<float, 2>, 3> normals{};
        for (std::size_t i = 0; i < normals.size(); ++i) {
            const float angle =
                (15.0F + 60.0F * static_cast<float>(i)) * std::numbers::pi_v<float> / 180.0F;
            normals[i] = {std::cos(angle), std::sin(angle)};
        }
        return normals;
    }();
    float distance = 0.0F;
    for (const auto& normal : kNormals)
        distance = std::max(distance, std::fabs(x * normal[0] + y * normal[1]));
    return distance - kNutHalfFlats;
}

float nutDistance(float x, float y) {
    return std::max(hexagonDistance(x, y), std::hypot(x, y) - kNutCorner);
}

float hardwareHeight(float x, float y, float hole) {
    const float radius = std::hypot(x, y);
    const float nut = nutDistance(x, y);
    return smoothStep(kWasherRadius, 26.2F, radius) + 5.5F * smoothStep(0.2F, -1.3F, nut) -
           1.2F * smoothStep(18.2F, 21.5F, radius) * smoothStep(0.0F, -0.6F, nut) +
           1.2F * smoothStep(hole + 0.6F, hole, radius);
}

/// Washer and nut.
Light hardware(const Facet& facet, const Polar& place, float x, float y) {
    const Light steel = linear(palette::kSteel);
    const float nut = nutDistance(x, y);
    Light light = metal(facet, steel);
    if (nut > 0.0F) {
        const float cut = smoothStep(26.6F, 26.0F, place.radius);
        light = mix(light, cutMetal(facet, steel, -place.y, place.x), cut);
        light *= 1.0F - 0.62F * std::exp(-nut / 1.5F);
        light *= 1.0F - 0.45F * smoothStep(3.2F, -0.5F, hexagonDistance(x - 2.2F, y - 2.8F));
    }
    return light;
}

Light plunger(const Patch& patch, const Field& dome, const Spot& spot, float x, float y,
              const Plunger& kind) {
    Light light = metal(patch.facet(dome, spot), linear(palette::kChrome));
    if (kind.pressed) { // lower, in the nut's shade
        light *= 0.46F + 0.16F * smoothStep(-10.0F, 12.0F, x * 0.6F + y * 0.8F);
        light *= 1.0F - 0.45F * smoothStep(9.5F, 13.6F, std::hypot(x - 1.8F, y - 2.3F));
    }
    return light;
}

/// Smoked glass; a lamp makes it the brightest thing of the panel.
Light ring(const Polar& place, bool lit) {
    const float middle = (kRingInner + kRingOuter) / 2;
    const float across = (place.radius - middle) / ((kRingOuter - kRingInner) / 2);
    if (!lit) { // it mirrors the light above left, and lets it through below right
        const float towardsLight = -place.x * 0.61F - place.y * 0.79F;
        return linear(palette::kRingDark) *
                   (0.6F + 1.6F * std::max(0.0F, -towardsLight) * smoothStep(0.9F, -0.4F, across)) +
               grey(0.10F * std::max(0.0F, towardsLight) *
                    std::exp(-(across + 0.1F) * (across + 0.1F) / 0.10F));
    }
    const Light hot = linear(mix(palette::kLampRuby, palette::kRingHot, 0.62F));
    return mix(linear(palette::kLampRuby) * 1.15F, hot * 1.25F, std::exp(-across * across / 0.30F));
}

/// What the ring throws on the metal beside it.
Light ringGlow(const Polar& place) {
    const float outside = std::max(place.radius - kRingOuter, kRingInner - place.radius);
    return linear(palette::kLampRuby) * (0.85F * std::exp(-std::max(0.0F, outside) / 2.0F));
}

Picture footSwitch(const SkinBitmap& size, int scale, const Plunger& kind, Collar collar) {
    const bool lit = collar == Collar::LitRing;
    const float hole = holeRadius(collar);
    const Patch patch(size.width, size.frameHeight, scale, 33.5, 24.5);
    const Field relief = patch.relief(0.3 * kSize, [hole](float x, float y) {
        return hardwareHeight(x / kSize, y / kSize, hole) * kSize;
    });
    const Field hidden = patch.occlusion(relief, 0.16F / kSize, 3.0 * kSize);
    const Field dome = patch.relief(0.0, [&kind](float x, float y) {
        const float radius = std::hypot(x, y) / kSize;
        const float share = std::min(radius / kind.radius, 1.0F);
        return kSize * (kind.dome * std::sqrt(std::max(1.06F - share * share, 0.02F)) +
                        0.7F * smoothStep(kind.radius, kind.radius - 1.6F, radius));
    });
    const auto washer = [](float x, float y) {
        return (Polar(x / kSize, y / kSize).radius - kWasherRadius) * kSize;
    };
    return patch.light(washer, [&](const Spot& spot) {
        const float x = spot.x / kSize;
        const float y = spot.y / kSize;
        const Polar place(x, y);
        const auto cover = [&patch](float distance) { return patch.cover(distance * kSize); };
        Light light = hardware(patch.facet(relief, spot), place, x, y);
        light *= 1.0F - hidden.row(spot.row)[spot.column];
        light *= 1.0F - 0.5F * cover(std::fabs(nutDistance(x, y)) - 0.35F);
        if (lit)
            light = light * kBesideRing + ringGlow(place);
        if (collar == Collar::Gap)
            light *= 1.0F - 0.8F * cover(place.radius - hole);
        else
            light = mix(light, ring(place, lit), cover(place.radius - hole));
        light = mix(light, grey(0.01F), cover(place.radius - kRingInner));
        Light top = plunger(patch, dome, spot, x, y, kind);
        if (lit)
            top = top * kInsideRing + ringGlow(place) * 0.5F;
        light = mix(light, top, cover(place.radius - kind.radius));
        return light;
    });
}

Picture captioned(const SkinBitmap& size, int scale, const Picture& picture, const char* caption) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(picture, 0, 0);
    write(canvas, caption, {33.5, 55}, kTypeS.tracked(0.7), palette::kPrint);
    return canvas.picture();
}

} // namespace

/// The second frame is the bypass: its ring is seen from where the musician stands.
Picture paintPowerSwitch(const SkinBitmap& size, int frame, int scale) {
    const bool bypassed = frame == 1;
    return captioned(size, scale,
                     footSwitch(size, scale, bypassed ? kDown : kUp,
                                bypassed ? Collar::LitRing : Collar::DarkRing),
                     bypassed ? "BYPASSED" : "POWER ON");
}

/// The second frame means pressed, which holds in two modes and lets go in the third: no ring could
/// tell what is. The lamp beside the switch does.
Picture paintFreezeSwitch(const SkinBitmap& size, int frame, int scale) {
    return captioned(size, scale, footSwitch(size, scale, frame == 1 ? kDown : kUp, Collar::Gap),
                     "HOLD LFO + EF");
}

} // namespace pedl::skin
