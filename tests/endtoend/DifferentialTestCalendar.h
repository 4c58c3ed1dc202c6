#pragma once

#include <cstdint>

namespace pedl::test {

/// What the calendar shows to this program and to every library that it opens, in seconds. An
/// instance seeds its random waves from it, so a test that knows it knows the waves.
void setCalendarSeconds(std::uint32_t seconds);

} // namespace pedl::test
