#include "resources/painter/Drawings.h"

#include "resources/painter/Canvas.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"
#include "resources/painter/Type.h"

#include <cmath>
#include <string_view>

namespace pedl::skin {

namespace {

constexpr float kDetent = 12.6F; // from position to position
constexpr double kMiddle = 30.5; // of the slide in its frame
constexpr double kDotRise = 9.2; // of the dots over the slide

float plateDistance(float x, float y) {
    return roundRectDistance(x, y, 20.0F, 6.0F, 3.0F);
}
float slotDistance(float x, float y) {
    return roundRectDistance(x, y, 18.6F, 4.6F, 2.0F);
}

float buttonHeight(float x, float y) {
    const float distance = roundRectDistance(x, y, 5.8F, 4.1F, 0.9F);
    float height = 2.0F * smoothStep(0.1F, -1.1F, distance);
    for (int groove = -2; groove <= 2; ++groove) {
        const float from = (x - 1.6F * static_cast<float>(groove)) / 0.42F;
        height -= 0.55F * std::exp(-from * from) * smoothStep(0.0F, -1.0F, distance);
    }
    return height;
}

/// Plate, slot and button; the slide's middle `down` pixels below the frame's top.
Picture slideBody(double height, int position, double down, int scale) {
    const Patch patch(61, height, scale, kMiddle, down);
    const float at = kDetent * static_cast<float>(position - 1);
    const Field plate = patch.relief(0.15, [](float x, float y) {
        return 0.9F * smoothStep(0.2F, -1.0F, plateDistance(x, y)) -
               2.2F * smoothStep(0.3F, -1.0F, slotDistance(x, y));
    });
    const Field button =
        patch.relief(0.1, [at](float x, float y) { return buttonHeight(x - at, y); });
    return patch.light(plateDistance, [&](const Spot& spot) {
        const float x = spot.x;
        const float y = spot.y;
        const Facet facet = patch.facet(plate, spot);
        const Light gunMetal = linear(palette::kGunMetal);
        Light light = mix(dielectric(facet, gunMetal, 0.3F), metal(facet, gunMetal), 0.9F);
        const float slot = patch.cover(slotDistance(x, y));
        light = mix(light, grey(0.006F + 0.02F * smoothStep(-4.0F, 6.0F, y)), slot);
        const float shadow =
            smoothStep(2.2F, -2.2F, roundRectDistance(x - 1.2F - at, y - 1.6F, 6.0F, 4.4F, 1.0F));
        light *= 1.0F - 0.8F * shadow * slot;
        const float top = patch.cover(roundRectDistance(x - at, y, 5.8F, 4.1F, 0.9F));
        if (top > 0.0F) {
            const Facet upper = patch.facet(button, spot);
            const Light aluminium = linear(palette::kAluminium);
            const Light cut =
                mix(metal(upper, aluminium), cutMetal(upper, aluminium, 0.0F, 1.0F), 0.55F);
            light = mix(light, cut * (1.02F + 0.34F * smoothStep(5.0F, -5.0F, y)), top);
        }
        return light;
    });
}

/// Ten pixels left and right and all below the slide stay clear: neighbours, value label.
Picture slide(const SkinBitmap& size, int frame, int scale, double down, std::string_view legend) {
    Canvas canvas(size.width, size.frameHeight, scale);
    canvas.put(slideBody(size.frameHeight, frame, down, scale), 0, 0);
    for (int position = 0; position < 3; ++position) {
        const double x = kMiddle + static_cast<double>(kDetent) * (position - 1);
        const double y = down - kDotRise;
        // At scale 1 a dot is four pixels, so that all look the same.
        canvas.fill(scale == 1 ? circle(std::round(x), std::round(y), 1.1) : circle(x, y, 0.9),
                    position == frame ? palette::kAmber : palette::kDotDark);
    }
    if (!legend.empty())
        write(canvas, legend, {kMiddle, 6}, kTypeL, palette::kPrint);
    return canvas.picture();
}

constexpr double kDownAlone = 13.5;
constexpr double kDownUnderLegend = 25.5;

} // namespace

Picture paintSyncSwitch(const SkinBitmap& size, int frame, int scale) {
    return slide(size, frame, scale, kDownUnderLegend, "SYNC");
}

Picture paintModeSwitch(const SkinBitmap& size, int frame, int scale) {
    return slide(size, frame, scale, kDownUnderLegend, "MODE");
}

Picture paintSlideSwitch(const SkinBitmap& size, int frame, int scale) {
    return slide(size, frame, scale, kDownAlone, {});
}

} // namespace pedl::skin
