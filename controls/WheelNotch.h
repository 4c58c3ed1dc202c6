#pragma once

namespace pedl {

/// Below this a turn of the wheel is part of a smooth scroll and counts as it is.
inline constexpr float kSmallestNotch = 0.1F;

/// A turn of the wheel as no more than one notch either way.
constexpr float oneNotch(float distance) {
    if (distance > kSmallestNotch)
        return 1.0F;
    return distance < -kSmallestNotch ? -1.0F : distance;
}

} // namespace pedl
