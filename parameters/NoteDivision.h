#pragma once

#include "parameters/DisplayText.h"

#include <array>
#include <cstddef>

namespace pedl {

/// The length of one LFO cycle as a fraction of a whole note.
struct NoteDivision {
    int numerator = 1;
    int denominator = 1;

    friend constexpr bool operator==(const NoteDivision&, const NoteDivision&) = default;
};

/// From the longest to the shortest; the order is part of the stored parameter value.
// clang-format off
constexpr std::array<NoteDivision, 32> kNoteDivisions{{
    {8, 1},  {7, 1},  {6, 1},  {5, 1},  {4, 1},  {3, 1},  {2, 1},  {3, 2},
    {1, 1},  {1, 2},  {3, 8},  {1, 3},  {1, 4},  {1, 5},  {3, 16}, {1, 6},
    {1, 7},  {1, 8},  {1, 10}, {3, 32}, {1, 12}, {1, 14}, {1, 16}, {1, 20},
    {3, 64}, {1, 24}, {1, 28}, {1, 32}, {1, 40}, {1, 48}, {1, 56}, {1, 64},
}};
// clang-format on

/// Position of 1:1 in the table.
constexpr std::size_t kWholeNoteDivision = 8;
static_assert(kNoteDivisions[kWholeNoteDivision] == NoteDivision{1, 1});

/// The table position that a normalised value in 0..1 selects; only 1 itself reaches the last.
[[nodiscard]] constexpr std::size_t noteDivisionIndex(float normalised) noexcept {
    return static_cast<std::size_t>(31.0 * static_cast<double>(normalised));
}

/// "1:8 " with a trailing blank, or dotted "1:4 ." for three eighths.
[[nodiscard]] DisplayText noteDivisionText(NoteDivision division);

} // namespace pedl
