#include "resources/painter/Drawings.h"

#include "resources/painter/KnobSizes.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Patch.h"
#include "resources/painter/Profile.h"
#include "resources/painter/Turned.h"

#include <numbers>

namespace pedl::skin {

namespace {

constexpr float kDegree = std::numbers::pi_v<float> / 180.0F;

/// Frames 0 to 100 turn from lower left over the top to lower right.
Pointer knobPointer(int frame) {
    return Pointer((-135.0F + 2.7F * static_cast<float>(frame)) * kDegree);
}

const Light kAluminium = linear(palette::kAluminium);
const Light kBakelite = linear(palette::kBakelite);
const Light kIvoryInlay = linear(palette::kPointerIvory);
const Light kGroove = linear(palette::kGrooveBlack);

/// Flutes: where they are, the radius counts for more than it is.
class Flutes {
public:
    /// @param fadeFrom, fadeTo  radii between which they become as deep as they are
    Flutes(int number, float depth, float fadeFrom, float fadeTo, const Pointer& pointer)
        : wave_(number, pointer.angle), depth_(depth), fadeFrom_(fadeFrom), fadeTo_(fadeTo) {}

    [[nodiscard]] float radius(const Polar& place) const {
        const float share = smoothStep(fadeFrom_, fadeTo_, place.radius);
        return share <= 0.0F ? place.radius
                             : place.radius + depth_ * share * (0.5F - 0.5F * wave_(place));
    }

private:
    RoundWave wave_;
    float depth_;
    float fadeFrom_;
    float fadeTo_;
};

/// An inlaid line: mostly its own colour, a little of the light on it.
Light inlay(Light lit, float cover, float share) {
    return mix(lit, kIvoryInlay * 0.89F, cover * share);
}

constexpr float kRimLine = 0.4F;   // half width of the dark line that ends a bakelite knob
constexpr float kRimShade = 0.45F; // how dark

// Large: bakelite skirt with flutes, spun aluminium cap, ivory line on the skirt, black on the cap
constexpr auto kLarge = static_cast<float>(kLargeRadius);
constexpr float kCapRadius = 12.0F;

const Profile& largeProfile() {
    static const Profile kProfile{{0.0F, 9.2F},   {10.6F, 9.2F},  {11.6F, 8.8F},  {12.0F, 8.2F},
                                  {12.4F, 8.7F},  {12.8F, 8.65F}, {13.3F, 8.49F}, {13.8F, 8.26F},
                                  {14.3F, 7.96F}, {14.8F, 7.58F}, {15.3F, 7.14F}, {15.8F, 6.63F},
                                  {16.3F, 6.04F}, {16.8F, 5.39F}, {17.3F, 4.67F}, {17.8F, 3.87F},
                                  {18.3F, 3.01F}, {18.8F, 2.08F}, {19.3F, 1.08F}, {kLarge, 0.0F}};
    return kProfile;
}

} // namespace

Picture paintLargeKnob(const SkinBitmap& size, int frame, int scale) {
    const Patch patch(size.width, size.frameHeight, scale, 26.0, 24.5);
    const Pointer pointer = knobPointer(frame);
    const Flutes flutes(24, 0.85F, 0.70F * kLarge, 0.88F * kLarge, pointer);
    const auto capMark = [&](float x, float y) {
        return patch.cover(markDistance(pointer.place(x, y), 0.85F, 4.0F, 11.4F));
    };
    const Field relief = patch.relief(0.32, [&](float x, float y) {
        const Polar place(x, y);
        return largeProfile()(flutes.radius(place)) - 0.3F * capMark(x, y);
    });
    const Field hidden = patch.occlusion(relief, 0.10F, 2.5);
    const auto outline = [&](float x, float y) { return flutes.radius(Polar(x, y)) - kLarge; };
    return patch.light(outline, [&](const Spot& spot) {
        const Polar place(spot.x, spot.y);
        const Facet facet = patch.facet(relief, spot);
        const float cap = patch.cover(place.radius - kCapRadius);
        Light light;
        if (cap < 1.0F) {
            const float line = patch.cover(
                markDistance(pointer.place(spot.x, spot.y), 1.05F, 12.8F, kLarge - 0.6F));
            light = dielectric(facet, mix(kBakelite, kIvoryInlay, line), 0.85F - 0.75F * line);
            light = inlay(light, line, 0.75F);
        }
        if (cap > 0.0F) {
            const float mark = capMark(spot.x, spot.y);
            const Light albedo = kAluminium * (1.0F + 0.045F * latheNoise(place.radius, 5));
            const float cut = smoothStep(11.4F, 10.8F, place.radius);
            Light top = mix(metal(facet, albedo), cutMetal(facet, albedo, -place.y, place.x), cut);
            top = mix(top, dielectric(facet, kGroove, 0.1F), mark);
            light = mix(light, top, cap);
        }
        light *= 1.0F - hidden.row(spot.row)[spot.column];
        light *= 1.0F - 0.75F * patch.cover(std::fabs(place.radius - 12.15F) - 0.32F);
        light *= 1.0F - kRimShade * patch.cover(std::fabs(place.radius - kLarge) - kRimLine);
        return light;
    });
}

namespace {

// Medium: bakelite with a dished crown, ivory line
constexpr auto kMedium = static_cast<float>(kMediumRadius);

const Profile& mediumProfile() {
    static const Profile kProfile{{0.0F, 7.6F},  {2.0F, 7.5F},  {4.0F, 7.15F},  {6.0F, 6.6F},
                                  {7.5F, 6.02F}, {8.9F, 5.4F},  {9.5F, 5.0F},   {9.9F, 4.95F},
                                  {10.6F, 4.6F}, {13.2F, 2.0F}, {kMedium, 0.0F}};
    return kProfile;
}

} // namespace

Picture paintMediumKnob(const SkinBitmap& size, int frame, int scale) {
    const Patch patch(size.width, size.frameHeight, scale, size.width / 2.0,
                      size.frameHeight / 2.0);
    const Pointer pointer = knobPointer(frame);
    const Flutes flutes(18, 0.85F, 0.70F * kMedium, 0.88F * kMedium, pointer);
    const Field relief = patch.relief(
        0.38, [&](float x, float y) { return mediumProfile()(flutes.radius(Polar(x, y))); });
    const Field hidden = patch.occlusion(relief, 0.10F, 2.5);
    const auto outline = [&](float x, float y) { return flutes.radius(Polar(x, y)) - kMedium; };
    return patch.light(outline, [&](const Spot& spot) {
        const Polar place(spot.x, spot.y);
        const Facet facet = patch.facet(relief, spot);
        const float line =
            patch.cover(markDistance(pointer.place(spot.x, spot.y), 1.0F, 3.4F, kMedium - 0.7F));
        Light light = dielectric(facet, mix(kBakelite, kIvoryInlay, line), 0.85F - 0.73F * line);
        light *= 1.0F - hidden.row(spot.row)[spot.column];
        light = inlay(light, line, 0.70F);
        light *= 1.0F - kRimShade * patch.cover(std::fabs(place.radius - kMedium) - kRimLine);
        return light;
    });
}

namespace {

// Small: machined aluminium, knurled wall, turned face, black groove
constexpr auto kSmall = static_cast<float>(kSmallRadius);

const Profile& smallProfile() {
    static const Profile kProfile{
        {0.0F, 4.6F}, {7.6F, 4.6F}, {8.5F, 4.1F}, {9.5F, 2.6F}, {kSmall, 0.0F}};
    return kProfile;
}

} // namespace

Picture paintSmallKnob(const SkinBitmap& size, int frame, int scale) {
    const Patch patch(size.width, size.frameHeight, scale, 14.0, 13.0);
    const Pointer pointer = knobPointer(frame);
    const auto groove = [&](float x, float y) {
        return patch.cover(markDistance(pointer.place(x, y), 0.95F, 2.2F, 9.8F));
    };
    const RoundWave knurls(26, pointer.angle);
    const Field relief = patch.relief(0.18, [&](float x, float y) {
        const Polar place(x, y);
        const float share = smoothStep(8.2F, 9.6F, place.radius);
        const float knurl = share > 0.0F ? 0.20F * share * knurls(place) : 0.0F;
        return smallProfile()(place.radius + knurl) - 0.35F * groove(x, y);
    });
    return patch.light(disc(kSmall), [&](const Spot& spot) {
        const Polar place(spot.x, spot.y);
        const Facet facet = patch.facet(relief, spot);
        const Light albedo = place.radius < 7.6F
                                 ? kAluminium * (1.0F + 0.05F * latheNoise(place.radius, 3))
                                 : kAluminium;
        const float cut = smoothStep(8.0F, 7.4F, place.radius);
        Light light = mix(metal(facet, albedo), cutMetal(facet, albedo, -place.y, place.x), cut);
        light = mix(light, dielectric(facet, kGroove, 0.1F), groove(spot.x, spot.y));
        light *= 1.0F - 0.35F * smoothStep(8.6F, 10.2F, place.radius);
        return light;
    });
}

namespace {

// Encoder: a turned wheel with a black inlay ring and a dimple for the finger
constexpr auto kEncoder = static_cast<float>(kEncoderRadius);
constexpr float kDimpleAt = 16.2F;
constexpr float kDimpleRadius = 7.2F;
constexpr float kDimpleDepth = 2.3F;
constexpr float kInlayRadius = 26.4F;

const Profile& encoderProfile() {
    static const Profile kProfile{{0.0F, 9.0F},   {25.6F, 9.0F}, {26.0F, 8.65F},
                                  {26.8F, 8.65F}, {27.2F, 9.0F}, {28.4F, 8.9F},
                                  {29.8F, 7.6F},  {31.6F, 3.6F}, {kEncoder, 0.0F}};
    return kProfile;
}

} // namespace

/// Once round in a hundred frames, so that the last one is the first again.
Picture paintEncoder(const SkinBitmap& size, int frame, int scale) {
    const Patch patch(size.width, size.frameHeight, scale, 35.0, 35.0);
    const Pointer pointer(3.6F * static_cast<float>(frame % 100) * kDegree);
    const auto fromDimple = [&](float x, float y) {
        const float toX = x - kDimpleAt * pointer.sine;
        const float toY = y + kDimpleAt * pointer.cosine;
        return std::sqrt(toX * toX + toY * toY);
    };
    const auto bowlDepth = [](float distance) {
        const float share = distance / kDimpleRadius;
        return kDimpleDepth * std::max(0.0F, 1.0F - share * share);
    };
    const Flutes flutes(60, 1.1F, 28.6F, 29.6F, pointer);
    const Field relief = patch.relief(0.25, [&](float x, float y) {
        const Polar place(x, y);
        return encoderProfile()(flutes.radius(place)) - bowlDepth(fromDimple(x, y));
    });
    const Field hidden = patch.occlusion(relief, 0.03F, 3.0);
    return patch.light(disc(kEncoder), [&](const Spot& spot) {
        const Polar place(spot.x, spot.y);
        const float distance = fromDimple(spot.x, spot.y);
        const float dimple = smoothStep(kDimpleRadius, 6.6F, distance);
        Facet facet = patch.facet(relief, spot);
        const float ring = patch.cover(std::fabs(place.radius - kInlayRadius) - 0.55F);
        const Light albedo =
            kAluminium * ((1.0F + 0.045F * latheNoise(place.radius, 11)) * (1.0F - 0.9F * ring));
        const float cut = smoothStep(28.6F, 28.0F, place.radius) * (1.0F - ring) *
                          (1.0F - smoothStep(7.4F, 6.2F, distance));
        Light light = mix(metal(facet, albedo), cutMetal(facet, albedo, -place.y, place.x), cut);
        light *= 1.0F - hidden.row(spot.row)[spot.column];
        light = mix(light, bowl(facet, kAluminium), dimple);
        light *= 1.0F - 0.25F * patch.cover(std::fabs(place.radius - 3.2F) - 0.22F);
        light *= 1.0F - 0.25F * smoothStep(31.4F, 33.2F, place.radius);
        return light;
    });
}

} // namespace pedl::skin
