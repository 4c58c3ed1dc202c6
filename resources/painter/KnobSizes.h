#pragma once

namespace pedl::skin {

// Radii of the knobs, logical pixels: the knob itself, its shadow and its scale go by them.
inline constexpr double kEncoderRadius = 33;
inline constexpr double kLargeRadius = 19.8;
inline constexpr double kMediumRadius = 14.5;
inline constexpr double kSmallRadius = 10.5;

} // namespace pedl::skin
