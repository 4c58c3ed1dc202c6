#include "resources/painter/Shading.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace pedl::skin {

namespace {

/// A function of a number in 2^-16..2^4, looked up by the number's own bits: eight bits of the
/// mantissa are a 500th of its size, a step that nobody sees.
class Curve {
public:
    template <class Function> explicit Curve(Function function) {
        values_.reserve(kLast - kFirst + 1);
        values_.push_back(function(0.0F)); // and all that is too small for the table
        for (std::uint32_t index = kFirst + 1; index <= kLast; ++index)
            values_.push_back(
                function(std::bit_cast<float>((index << kDropped) + (1U << (kDropped - 1)))));
    }

    float operator()(float x) const {
        const auto index = std::bit_cast<std::uint32_t>(std::max(x, 0.0F)) >> kDropped;
        return values_[std::clamp(index, kFirst, kLast) - kFirst];
    }

private:
    static constexpr unsigned kDropped = 15;
    static constexpr std::uint32_t kFirst = (127U - 16U) << (23U - kDropped);
    static constexpr std::uint32_t kLast = (127U + 4U) << (23U - kDropped);
    std::vector<float> values_;
};

Curve power(float exponent) {
    return Curve([exponent](float x) { return std::pow(x, exponent); });
}

const Vector kKey = unit(kKeyLight);
const Vector kFill = unit({0.75F, 0.35F, 0.55F}); // the room's bounce
const Vector kHalfKey = unit({kKey.x, kKey.y, kKey.z + 1.0F});
const Vector kHalfFill = unit({kFill.x, kFill.y, kFill.z + 1.0F});

} // namespace

Vector unit(Vector vector) {
    const float scale = 1.0F / std::sqrt(dot(vector, vector));
    return {vector.x * scale, vector.y * scale, vector.z * scale};
}

Facet::Facet(float slopeX, float slopeY) : normal(unit({-slopeX, -slopeY, 1.0F})) {
    const float twice = 2.0F * normal.z;
    reflection = {twice * normal.x, twice * normal.y, twice * normal.z - 1.0F};
    key = std::max(0.0F, dot(normal, kKey));
    fill = std::max(0.0F, dot(normal, kFill));
    keyMirrored = dot(reflection, kKey);
}

float room(const Facet& facet) {
    const float up = 0.5F - 0.5F * facet.reflection.y;
    const float mirrored = facet.keyMirrored;
    return 0.055F + 0.20F * up * std::clamp(facet.reflection.z + 0.4F, 0.0F, 1.0F) +
           0.30F * smoothStep(0.35F, 0.95F, mirrored) + 1.5F * smoothStep(0.86F, 0.955F, mirrored) +
           0.16F * smoothStep(0.75F, 0.97F, dot(facet.reflection, kFill));
}

float glint(const Facet& facet, float begin, float end) {
    return smoothStep(begin, end, facet.keyMirrored);
}

Light dielectric(const Facet& facet, Light albedo, float gloss) {
    const float away = 1.0F - facet.normal.z;
    const float fresnel = 0.04F + 0.5F * away * away * away;
    const float once = square(std::max(0.0F, facet.keyMirrored));
    const float eighth = square(square(once));
    const float highlight = square(eighth) * eighth * once; // the 26th power
    return albedo * (0.20F + 0.92F * facet.key + 0.10F * facet.fill) +
           grey(gloss * (fresnel * room(facet) + 0.28F * highlight));
}

Light metal(const Facet& facet, Light albedo) {
    static const Curve kFall = power(1.3F);
    return albedo * (room(facet) + 0.05F + 0.42F * kFall(facet.key));
}

Light cutMetal(const Facet& facet, Light albedo, float alongX, float alongY) {
    static const Curve kBow = power(2.6F);
    const float toKey = alongX * kHalfKey.x + alongY * kHalfKey.y;
    const float toFill = alongX * kHalfFill.x + alongY * kHalfFill.y;
    const float level = 0.31F + 0.74F * kBow(std::max(0.0F, 1.0F - 5.2F * square(toKey))) +
                        0.26F * square(std::max(0.0F, 1.0F - 9.0F * square(toFill)));
    return albedo * (level * (0.35F + 0.72F * facet.key / kKey.z));
}

Light bowl(const Facet& facet, Light albedo) {
    static const Curve kFall = power(1.5F);
    return albedo * (0.16F + 0.75F * kFall(facet.key) + 0.25F * glint(facet, 0.86F, 0.97F));
}

Colour screen(Light light) {
    static const Curve kCurve([](float x) {
        constexpr float kShoulder = 0.75F;
        constexpr float kRest = 1.0F - kShoulder;
        if (x > kShoulder)
            x = kShoulder + kRest * (1.0F - std::exp((kShoulder - x) / kRest));
        return std::pow(x, 1.0F / kGamma);
    });
    return {kCurve(light.red), kCurve(light.green), kCurve(light.blue)};
}

} // namespace pedl::skin
