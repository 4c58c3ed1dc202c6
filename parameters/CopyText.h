#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace pedl {

/// Copies at most `limit` characters of `text` into `destination` and ends them with one zero.
///
/// Nothing behind that zero is touched: some hosts hand buffers that are exactly `limit` + 1 long.
inline void copyText(char* destination, std::string_view text, std::size_t limit) noexcept {
    const std::size_t length = std::min(text.size(), limit);
    std::copy_n(text.data(), length, destination);
    destination[length] = '\0';
}

} // namespace pedl
