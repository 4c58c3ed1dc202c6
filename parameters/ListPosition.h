#pragma once

#include <cstdint>

namespace pedl {

// A list of n positions travels as one normalised value: each position is an n-th of the range, and
// is sent as that n-th's middle.

/// The value that stands for `position` in a list of `count`; above 1 for a position beyond the
/// end.
[[nodiscard]] constexpr float listValue(std::int32_t position, std::int32_t count) noexcept {
    return (static_cast<float>(position) + 0.5F) / static_cast<float>(count);
}

/// The position that any value selects: 0 below the range and for NaN, the last above it.
[[nodiscard]] constexpr std::int32_t listPosition(float normalised, std::int32_t count) noexcept {
    if (!(normalised > 0.0F)) // NaN too
        return 0;
    const double position = static_cast<double>(normalised) * count;
    return position < count ? static_cast<std::int32_t>(position) : count - 1;
}

} // namespace pedl
