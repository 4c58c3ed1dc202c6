#pragma once

#include "foundation/text/Result.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <string_view>

namespace pedl {

/// JSON whose numbers are read as the floats that the plug-in stores, correctly rounded, and whose
/// members keep their order.
using Json = nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool,
                                  std::int64_t, std::uint64_t, float>;

/// Parses a whole text in bounded depth and memory, whatever it holds. Members given twice are
/// refused: which of the two is meant, nobody can tell.
///
/// @return the value, or one line that says where and what is wrong
Result<Json> parseJson(std::string_view text);

/// A text of the user's for a message: printable, cut where it is long, between quotation marks.
[[nodiscard]] std::string inQuotes(std::string_view text);

} // namespace pedl
