#include "resources/painter/KeyCaps.h"

#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"

namespace pedl::skin {

namespace {

constexpr float kLampEvery = 52.0F; // pixels of a key that one lamp behind it lights

/// What the lamps behind a key of that size give to a place, 0..1.
float lampLight(float x, float y, float width, float height) {
    const int lamps = std::max(1, static_cast<int>(std::lround(width / kLampEvery)));
    const float reach = std::min(width * 0.40F, 17.0F);
    const float down = (y + 0.3F) / (height * 0.46F);
    float light = 0.0F;
    for (int i = 0; i < lamps; ++i) {
        const float lamp =
            width * ((static_cast<float>(i) + 0.5F) / static_cast<float>(lamps) - 0.5F);
        const float across = (x - lamp) / reach;
        light += std::exp(-across * across - down * down);
    }
    return std::pow(std::min(light, 1.0F), 0.8F);
}

Light litCap(const Facet& facet, float light) {
    const Light edge = linear(palette::kKeyLitEdge) * 1.08F;
    const Light core = linear(palette::kKeyLitCore) * 1.22F;
    return mix(edge, core, light) * (0.72F + 0.42F * facet.key) +
           grey(0.10F * glint(facet, 0.86F, 0.96F));
}

} // namespace

Picture keyCap(double width, double height, int scale, bool lit, double radius) {
    const Patch patch(width, height, scale, width / 2, height / 2);
    const auto halfWidth = static_cast<float>(width / 2);
    const auto halfHeight = static_cast<float>(height / 2);
    const auto corner = static_cast<float>(radius);
    const auto outline = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth - 1.4F, halfHeight - 1.4F, corner);
    };
    const Field relief = patch.relief(
        0.12, [&](float x, float y) { return 1.6F * smoothStep(0.1F, -1.5F, outline(x, y)); });
    const auto seat = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth - 0.5F, halfHeight - 0.5F, corner + 0.6F);
    };
    return patch.light(seat, [&](const Spot& spot) {
        const Facet facet = patch.facet(relief, spot);
        const float distance = outline(spot.x, spot.y);
        Light light = linear(palette::kSeat);
        if (lit)
            light +=
                linear(palette::kKeyGlow) * (0.55F * std::exp(-std::max(distance, 0.0F) / 0.7F));
        const Light cap =
            lit ? litCap(facet, lampLight(spot.x, spot.y, 2 * halfWidth, 2 * halfHeight))
                : dielectric(facet, linear(palette::kKeyDark), 0.35F);
        return mix(light, cap, patch.cover(distance));
    });
}

Picture roundKeyCap(const RoundKey& key, int scale) {
    const Patch patch(key.width, key.height, scale, key.width / 2, key.height / 2);
    const auto halfWidth = static_cast<float>(key.halfWidth);
    const auto halfHeight = static_cast<float>(key.halfHeight);
    const auto corner = static_cast<float>(key.radius);
    const auto outline = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth, halfHeight, corner - 0.1F);
    };
    const Field relief = patch.relief(
        0.12, [&](float x, float y) { return 1.6F * smoothStep(0.1F, -2.2F, outline(x, y)); });
    const auto seat = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth + 0.9F, halfHeight + 0.9F, corner + 0.9F);
    };
    return patch.light(seat, [&](const Spot& spot) {
        const Light cap = dielectric(patch.facet(relief, spot), linear(key.colour), 0.35F) *
                          (key.lit ? 1.15F : 1.0F);
        return mix(linear(palette::kSeat), cap, patch.cover(outline(spot.x, spot.y)));
    });
}

Picture barKeyCap(double width, double height, int scale, KeyState state, double radius) {
    const Patch patch(width, height, scale, width / 2, height / 2);
    const auto halfWidth = static_cast<float>(width / 2);
    const auto halfHeight = static_cast<float>(height / 2);
    const auto corner = static_cast<float>(radius);
    const Colour colour =
        state == KeyState::Lit       ? palette::kKeyAmber
        : state == KeyState::Hover   ? mix(palette::kKeyDark, palette::kWarmWhite, 0.13F)
        : state == KeyState::Pressed ? mix(palette::kKeyDark, palette::kBlack, 0.35F)
                                     : palette::kKeyDark;
    const float rise = state == KeyState::Pressed ? -0.5F : 1.2F;
    const float gloss = state == KeyState::Pressed ? 0.1F : 0.3F; // sunk, it mirrors no light
    const auto outline = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth - 1.1F, halfHeight - 1.1F, corner - 0.4F);
    };
    const Field relief = patch.relief(
        0.1, [&](float x, float y) { return rise * smoothStep(0.1F, -1.2F, outline(x, y)); });
    const auto seat = [=](float x, float y) {
        return roundRectDistance(x, y, halfWidth - 0.5F, halfHeight - 0.5F, corner);
    };
    return patch.light(seat, [&](const Spot& spot) {
        const Light cap = dielectric(patch.facet(relief, spot), linear(colour), gloss);
        return mix(grey(0.004F), cap, patch.cover(outline(spot.x, spot.y)));
    });
}

} // namespace pedl::skin
