#pragma once

#include "foundation/basics/FixedText.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace pedl {

// What becomes of stored values that are no normalised values, and the lines that say so.

/// Whether a value lies in 0..1; NaN does not.
[[nodiscard]] constexpr bool isNormalised(float value) noexcept {
    return value >= 0.0F && value <= 1.0F;
}

/// A program's value in 0..1: NaN becomes 0, everything else the nearer bound.
[[nodiscard]] constexpr float repairedValue(float value) noexcept {
    if (value > 1.0F)
        return 1.0F;
    return value >= 0.0F ? value : 0.0F;
}

/// A channel or link value in 0..1: whatever lies outside becomes 1, all channels or no controller.
[[nodiscard]] constexpr float repairedToEnd(float value) noexcept {
    return isNormalised(value) ? value : 1.0F;
}

/// A line on a repaired value, held by value: a load must not stop half way for want of memory.
using RepairText = FixedText<160>;

/// What was found in a program's value, where, and in which slot under which name.
///
/// @param place  as "on load of preset", in front of the slot
[[nodiscard]] RepairText programRepairText(std::int32_t parameter, float value,
                                           std::string_view place, std::int32_t slot,
                                           std::string_view programName);

/// What was found in a value that belongs to no program, and where. One that is not a number is
/// told without its parameter.
[[nodiscard]] RepairText plainRepairText(std::int32_t parameter, float value,
                                         std::string_view place);

} // namespace pedl
