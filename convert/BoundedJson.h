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

/// Ends the reading of a text: what is wrong, and in which place of it. Thrown and caught within
/// `convert/`, so that nobody outside sees one.
struct Refusal {
    std::string place; ///< empty for the whole
    std::string reason;

    [[nodiscard]] Problem problem() const {
        return place.empty() ? Problem{reason} : Problem{reason}.of(place);
    }
};

/// Parses a whole text in bounded depth and memory, whatever it holds. Members given twice are
/// refused: which of the two is meant, nobody can tell.
///
/// @return the value, or one line that says where and what is wrong
Result<Json> parseJson(std::string_view text);

/// A text of the user's for a message: printable, cut where it is long, between quotation marks.
[[nodiscard]] std::string inQuotes(std::string_view text);

} // namespace pedl
