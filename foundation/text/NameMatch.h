#pragma once

#include "foundation/text/Result.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pedl {

/// Something the user can name: a parameter or a program. Empty names do not count.
struct NamedItem {
    int index = 0;
    std::vector<std::string> names;
};

/// Finds what the user means by `wanted`. Case and blanks make no difference, except where one item
/// alone has the name letter for letter: that one is meant.
///
/// Tried in this order, and the first that finds anything decides:
/// 1. a name that is exactly `wanted`;
/// 2. a name of 7 or more characters with which `wanted` begins: plug-ins cut their names to 8, and
///    a blank or the terminator can take one more;
/// 3. a name that begins with `wanted`;
/// 4. a name that has `wanted` in it, and a short name that ends with an abbreviation of it:
///    "cutoff" for "FltrCut".
///
/// Cut names can be alike ("Filter S" stands for slope and for saturate). Then the item decides
/// whose other name abbreviates `wanted` at most length: "FltrSlp" keeps to the order of the
/// letters of "Filter Slope", "FltrSat" does not.
///
/// @param kind  what is looked for, in the singular, for the message
/// @return the item's index, or a line that names the candidates or, where there are none, up to
///         three names that may have been meant: mistyped in one place, abbreviated, or of the same
///         start
Result<int> findByName(std::string_view wanted, std::span<const NamedItem> items,
                       std::string_view kind);

/// What was found, and a line to tell the user where the name alone did not decide.
struct FoundName {
    int index = 0;
    std::string note; // mostly empty
};

/// `findByName` among `names`, numbered from 0, or the number itself where `wanted` is one. Of
/// several with the same name the first is taken, and the note says so.
///
/// @param holder  who has the items, for the message about a number that is too large
Result<FoundName> findNumbered(std::string_view wanted, std::span<const std::string> names,
                               std::string_view kind, std::string_view holder);

/// The word that may have been meant by one that is mistyped or not written out; empty for none.
[[nodiscard]] std::string nearestWord(std::string_view wanted, std::span<const std::string> words);

/// How many characters two texts have in common from their start on.
[[nodiscard]] std::size_t sharedStart(std::string_view a, std::string_view b);

/// The whole text as a number from 0, or nothing: a parameter's index or a program's slot.
[[nodiscard]] std::optional<int> indexFrom(std::string_view text);

/// `text` in lower-case letters; characters beyond ASCII stay as they are.
[[nodiscard]] std::string lowerCase(std::string_view text);

/// `text` without blanks and tabs at either end.
[[nodiscard]] std::string_view trimmed(std::string_view text);

} // namespace pedl
