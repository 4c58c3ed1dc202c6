#pragma once

#include <string>

namespace pedl {

/// What `printf` would print, whatever its length.
[[nodiscard, gnu::format(printf, 1, 2)]] std::string formatted(const char* format, ...);

} // namespace pedl
