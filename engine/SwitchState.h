#pragma once

namespace pedl {

/// The state of a switch of two that a host value in 0..1 stands for: 0 or 1.
[[nodiscard]] inline double switchState(double normalised) noexcept {
    return static_cast<int>(normalised + 0.5);
}

/// The state of a switch of three that a host value in 0..1 stands for: 0, 1 or 2.
[[nodiscard]] inline int threeWayState(double normalised) noexcept {
    return static_cast<int>(2.0 * normalised + 0.5);
}

} // namespace pedl
