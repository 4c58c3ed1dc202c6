#pragma once

#include <limits>

namespace pedl::test {

// What a host or a file may hand over in place of a value.
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

} // namespace pedl::test
