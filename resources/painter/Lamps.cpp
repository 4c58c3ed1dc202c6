#include "resources/painter/Drawings.h"

#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"
#include "resources/painter/Profile.h"
#include "resources/painter/Turned.h"

namespace pedl::skin {

namespace {

constexpr float kJewelRadius = 4.05F;
constexpr float kBezelRadius = 5.6F;
constexpr double kLampSize = 12; // that these radii are for; smaller ones shrink

const RoundWave kFacets(8, 0.0F);

/// How a lamp shines.
struct Glow {
    Colour colour;
    float coreSize; // of its white middle: square of the radius where that has faded
    float onBezel;  // light that falls on the bezel
};

constexpr Glow kAmberGlow{palette::kLampAmber, 2.6F, 0.75F};
constexpr Glow kRubyGlow{palette::kLampRuby, 4.4F, 0.75F};
constexpr Glow kIceGlow{palette::kLampIce, 5.0F, 1.1F};

const Profile& bezelProfile() {
    static const Profile kProfile{{0.0F, 0.0F}, {3.9F, 0.0F}, {4.3F, 1.2F},
                                  {4.9F, 1.3F}, {5.5F, 0.2F}, {5.7F, 0.0F}};
    return kProfile;
}

/// The jewel is a ball; its slopes follow from where a point lies.
Facet jewelFacet(const Polar& place) {
    const float share = place.radius / 4.1F;
    const float z = std::sqrt(std::max(1.05F - share * share, 0.05F));
    return {-place.x * place.radius / 4.6F / z, -place.y * place.radius / 4.6F / z};
}

/// Lit through from the side that is turned away from the light.
Light darkJewel(const Facet& facet) {
    static const Vector kThrough = unit({-kKeyLight.x, -kKeyLight.y, kKeyLight.z});
    const float through = std::max(0.0F, dot(facet.normal, kThrough));
    return linear(palette::kLampDark) * (0.35F + 0.9F * through * through);
}

Light litJewel(const Polar& place, float x, float y, const Glow& glow) {
    const Light hot = linear(mix(glow.colour, palette::kLampHot, 0.78F));
    const float core =
        std::exp(-((x + 0.2F) * (x + 0.2F) + (y + 0.2F) * (y + 0.2F)) / glow.coreSize);
    const float middle = std::max(0.0F, 1.0F - place.radius / 4.1F);
    return mix(linear(glow.colour) * (0.80F + 0.5F * middle), hot * 1.2F, core);
}

Picture lamp(int scale, const Glow* glow, double size) {
    const Patch patch(size, size, scale, size / 2, size / 2);
    const auto shrink = static_cast<float>(size / kLampSize);
    const Field relief = patch.relief(0.15, [shrink](float x, float y) {
        return shrink * bezelProfile()(Polar(x, y).radius / shrink);
    });
    const auto bezel = [shrink](float x, float y) {
        return (Polar(x / shrink, y / shrink).radius - kBezelRadius) * shrink;
    };
    return patch.light(bezel, [&](const Spot& spot) {
        const float x = spot.x / shrink;
        const float y = spot.y / shrink;
        const Polar place(x, y);
        Light light = metal(patch.facet(relief, spot), linear(palette::kAluminium) * 0.9F);
        if (glow != nullptr)
            light = light * 0.5F +
                    linear(glow->colour) *
                        (glow->onBezel * std::exp(-std::max(0.0F, place.radius - 4.0F) / 1.1F));
        const Facet facet = jewelFacet(place);
        Light jewel = glow != nullptr ? litJewel(place, x, y, *glow) : darkJewel(facet);
        jewel *= 1.0F + 0.07F * kFacets(place) * smoothStep(1.4F, 3.4F, place.radius);
        jewel += grey((glow != nullptr ? 0.35F : 0.55F) * glint(facet, 0.90F, 0.99F));
        light = mix(light, jewel, patch.cover(place.radius - kJewelRadius));
        light *= 1.0F - 0.6F * patch.cover(std::fabs(place.radius - kJewelRadius) - 0.22F);
        return light;
    });
}

} // namespace

Picture paintLampOff(const SkinBitmap& size, int, int scale) {
    return lamp(scale, nullptr, size.width);
}

Picture paintLampAmber(const SkinBitmap& size, int, int scale) {
    return lamp(scale, &kAmberGlow, size.width);
}

Picture paintLampRuby(const SkinBitmap& size, int, int scale) {
    return lamp(scale, &kRubyGlow, size.width);
}

Picture paintLampIce(const SkinBitmap& size, int, int scale) {
    return lamp(scale, &kIceGlow, size.width);
}

/// The lamp of the preset bar.
Picture paintMidiLamp(const SkinBitmap& size, int frame, int scale) {
    return lamp(scale, frame == 0 ? nullptr : &kAmberGlow, size.width);
}

} // namespace pedl::skin
