#pragma once

#include "convert/Document.h"
#include "foundation/text/NameMatch.h"
#include "foundation/text/Result.h"
#include "presets/ProgramRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pedl {

// The readable form of a document: JSON, a parameter a line, made to be edited and to be compared
// line by line. docs/text-form.md shows it.

/// What every text form says of itself.
constexpr std::string_view kTextFormat = "ZMT pedlFilter";
constexpr std::int64_t kTextVersion = 1;

/// The document as text. `documentFromText` gives back the same, bit for bit.
[[nodiscard]] std::string textForm(const Document& document);

/// Whether contents begin as a text form does.
[[nodiscard]] bool looksLikeText(std::string_view contents) noexcept;

/// Reads a text form that was written here or by hand.
///
/// What is missing is the factory's. Where a value and its text do not go together the value
/// counts, and a warning says so.
///
/// @return the document, or one line that names the place
Result<Document> documentFromText(std::string_view text);

// Names

/// What a parameter (0 to 55) is called: its long name, or "Parameter 22" where hosts see none.
[[nodiscard]] std::string parameterKey(std::int32_t parameter);

/// All of them with what else they answer to, for `findByName`.
[[nodiscard]] std::vector<NamedItem> parameterKeys();

/// The text that a parameter shows at a value; empty for one that shows none.
[[nodiscard]] std::string parameterDisplay(std::int32_t parameter, float value);

/// The unit that goes with its numbers where the text leaves it out; empty where there is none.
[[nodiscard]] std::string parameterUnitText(std::int32_t parameter);

/// "sustain cc#64".
[[nodiscard]] std::string controllerName(std::int32_t controller);

/// A stored name as it is shown.
[[nodiscard]] std::string shownName(const ProgramName& name);

/// The stored name whose 24 bytes are given as hexadecimal digits.
[[nodiscard]] std::optional<ProgramName> nameFromHex(std::string_view digits) noexcept;

/// Decimal digits that are read back as the same float, as few as there can be.
[[nodiscard]] std::string exactNumber(float value);

} // namespace pedl
