#pragma once

#include "resources/painter/Field.h"

#include <cstdint>

namespace pedl::skin {

/// Numbers that look random and depend on their place and a seed alone: no order of drawing, no
/// library and no thread can change them.
constexpr std::uint64_t scatter(std::uint64_t seed, std::uint64_t x, std::uint64_t y) {
    std::uint64_t bits =
        (seed + 1) * 0x9E3779B97F4A7C15U + x * 0xBF58476D1CE4E5B9U + y * 0x94D049BB133111EBU;
    bits = (bits ^ bits >> 30U) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ bits >> 27U) * 0x94D049BB133111EBU;
    return bits ^ bits >> 31U;
}

/// 0..1, evenly.
constexpr float evenNoise(std::uint64_t seed, int x, int y) {
    return static_cast<float>(
               scatter(seed, static_cast<std::uint64_t>(x), static_cast<std::uint64_t>(y)) >> 40U) /
           static_cast<float>(1U << 24U);
}

/// Mean 0, variance 1, bell-shaped: the sum of four even ones, each with the variance 1/12.
constexpr float bellNoise(std::uint64_t seed, int x, int y) {
    const std::uint64_t bits =
        scatter(seed, static_cast<std::uint64_t>(x), static_cast<std::uint64_t>(y));
    float sum = 0.0F;
    for (unsigned shift = 0; shift < 64; shift += 16)
        sum += static_cast<float>(bits >> shift & 0xFFFFU) / 65535.0F;
    return (sum - 2.0F) * 1.7320508F;
}

inline Field bellNoiseField(int width, int height, std::uint64_t seed) {
    Field field(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            field.row(y)[x] = bellNoise(seed, x, y);
    return field;
}

} // namespace pedl::skin
