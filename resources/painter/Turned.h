#pragma once

#include "resources/painter/Noise.h"

#include <cmath>
#include <cstdint>

namespace pedl::skin {

/// A place on a turned part.
struct Polar {
    float radius;
    float x, y; // of the unit vector to it

    Polar(float toX, float toY)
        : radius(std::sqrt(toX * toX + toY * toY) + 1e-6F), x(toX / radius), y(toY / radius) {}
};

/// A turned part's outline, as a Patch takes it.
inline auto disc(float radius) {
    return [radius](float x, float y) { return Polar(x, y).radius - radius; };
}

/// A wave that goes round a part `number` times, 1 where the pointer is: cos(n (angle - pointer))
/// as powers of complex numbers, for it is asked of every sample.
class RoundWave {
public:
    RoundWave(int number, float pointerAngle)
        : number_(number), cosine_(std::cos(static_cast<float>(number) * pointerAngle)),
          sine_(std::sin(static_cast<float>(number) * pointerAngle)) {}

    float operator()(const Polar& place) const {
        float x = place.x;
        float y = place.y;
        float real = cosine_;
        float imaginary = -sine_;
        for (int rest = number_; rest > 0; rest /= 2) {
            if (rest % 2 == 1) {
                const float product = real * x - imaginary * y;
                imaginary = real * y + imaginary * x;
                real = product;
            }
            const float square = x * x - y * y;
            y = 2.0F * x * y;
            x = square;
        }
        return real;
    }

private:
    int number_;
    float cosine_;
    float sine_;
};

/// A place seen from a pointer: `along` to its tip, `across` to its right.
struct PointerPlace {
    float across, along;
};

/// A pointer's direction, clockwise from twelve o'clock.
struct Pointer {
    float angle, sine, cosine;

    explicit Pointer(float radians)
        : angle(radians), sine(std::sin(radians)), cosine(std::cos(radians)) {}

    [[nodiscard]] PointerPlace place(float x, float y) const {
        return {x * cosine + y * sine, x * sine - y * cosine};
    }
};

/// Distance to a straight mark on a pointer, from radius `from` to `to`; negative inside.
inline float markDistance(PointerPlace place, float halfWidth, float from, float to) {
    return std::max(std::fabs(place.across) - halfWidth,
                    std::max(from - place.along, place.along - to));
}

/// The lathe's uneven cuts: noise over the radius alone, nine a pixel, mean 0, variance 1.
inline float latheNoise(float radius, std::uint64_t seed) {
    const float place = radius * 9.0F;
    const int index = static_cast<int>(place);
    const float before = bellNoise(seed, index, 0);
    return before + (bellNoise(seed, index + 1, 0) - before) * (place - static_cast<float>(index));
}

} // namespace pedl::skin
