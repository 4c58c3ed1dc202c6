#pragma once

#include <cmath>
#include <cstdint>

namespace pedl::skin {

/// A colour as it is written down and stored: sRGB, 0..1.
struct Colour {
    float red, green, blue;
};

constexpr Colour hex(std::uint32_t rgb) {
    const auto part = [rgb](int shift) { return static_cast<float>(rgb >> shift & 255U) / 255.0F; };
    return {part(16), part(8), part(0)};
}

/// From `a` (t = 0) to `b` (t = 1).
constexpr Colour mix(Colour a, Colour b, float t) {
    return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t,
            a.blue + (b.blue - a.blue) * t};
}

/// An amount of light: linear, so that lights add up and materials multiply; 1 is white paper.
struct Light {
    float red = 0.0F, green = 0.0F, blue = 0.0F;

    constexpr Light& operator+=(Light other) { return *this = *this + other; }
    constexpr Light& operator*=(float factor) { return *this = *this * factor; }
    friend constexpr Light operator+(Light a, Light b) {
        return {a.red + b.red, a.green + b.green, a.blue + b.blue};
    }
    friend constexpr Light operator*(Light a, float factor) {
        return {a.red * factor, a.green * factor, a.blue * factor};
    }
};

constexpr Light grey(float level) {
    return {level, level, level};
}

constexpr Light mix(Light a, Light b, float t) {
    return a * (1.0F - t) + b * t;
}

/// The screen's exponent, near enough to sRGB's curve.
inline constexpr float kGamma = 2.2F;

inline Light linear(Colour colour) {
    return {std::pow(colour.red, kGamma), std::pow(colour.green, kGamma),
            std::pow(colour.blue, kGamma)};
}

} // namespace pedl::skin
