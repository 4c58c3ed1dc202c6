#pragma once

#include <string>
#include <string_view>

namespace pedl {

/// `text` as valid UTF-8 without control characters, fit for a terminal and for JSON.
///
/// Control characters become blanks; bytes that are not UTF-8 are read as Latin-1, which is what
/// old plug-ins write. Blanks at either end stay.
[[nodiscard]] std::string printableText(std::string_view text);

} // namespace pedl
