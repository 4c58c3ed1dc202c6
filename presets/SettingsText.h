#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pedl {

/// A text as settings hold it: UTF-16, little-endian, and one zero byte.
///
/// The terminator has two bytes and its second one is left out: settings that have been in use for
/// years have this size. What is not UTF-8 in `text`, such as a path in another encoding, becomes
/// single surrogates U+DC80 to U+DCFF, so that every path comes back as it was.
[[nodiscard]] std::vector<std::byte> settingsTextBytes(std::string_view text);

/// The text of such a value, as UTF-8. Ends at the first zero character or where the bytes end,
/// with a whole terminator, half of one or none.
[[nodiscard]] std::string textOfSettings(std::span<const std::byte> bytes);

} // namespace pedl
