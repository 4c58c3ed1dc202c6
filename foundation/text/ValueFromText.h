#pragma once

#include "foundation/text/Result.h"

#include <functional>
#include <string>
#include <string_view>

namespace pedl {

/// The text that a parameter shows at a normalised value.
using TextOfValue = std::function<std::string(float normalised)>;

/// Finds the normalised value at which a parameter shows `wanted`.
///
/// Works from the texts alone, so for any plug-in. Texts are compared without blanks and without
/// regard to case; a unit may be left out ("24" for "24 dB"). Where the texts are many different
/// numbers they are taken as a function of the value: the nearest number is found by bisection,
/// across hertz and kilohertz or milliseconds and seconds if the texts change over. A number there
/// may have any unit of the quantity ("1.2k", "0.5 s" among milliseconds); whatever else stands
/// around it is refused, for a wrong unit makes a wrong value by a factor of a thousand. A number
/// between the texts of a short list ("18" between "12 dB" and "24 dB") is refused.
///
/// The answer lies in the middle of the values that show the text, or at 0 or 1 when these do.
///
/// @param unit  the unit that the plug-in names beside its texts, empty for none
/// @return the value, or a line that says what the parameter can show
Result<float> valueFromText(std::string_view wanted, std::string_view unit,
                            const TextOfValue& textAt);

} // namespace pedl
