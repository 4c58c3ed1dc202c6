#pragma once

#include "foundation/basics/FixedText.h"

#include <cstddef>

namespace pedl {

/// Characters of a parameter's name, and of a number; the interface promises room for as many and a
/// zero.
constexpr std::size_t kParameterTextLength = 8;

/// Characters of the longest text of a value, "abovethrs".
constexpr std::size_t kDisplayTextLength = 9;

/// The text of a parameter's value.
using DisplayText = FixedText<kDisplayTextLength>;

} // namespace pedl
