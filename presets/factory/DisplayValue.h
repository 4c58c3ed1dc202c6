#pragma once

#include "foundation/text/Result.h"
#include "parameters/ParameterIndex.h"

#include <optional>
#include <string_view>

namespace pedl {

/// A parameter by its identifier, as `kFilterCutoffFreq`.
[[nodiscard]] std::optional<ParameterIndex> parameterByIdentifier(std::string_view identifier);

/// The value at which the parameter shows `text`: the middle of all that do. A number has the unit
/// of the parameter behind it ("450 Hz"), so that no line is read in another one; "normalised 0.25"
/// is the value itself.
Result<float> valueInDisplayTerms(ParameterIndex parameter, std::string_view text);

} // namespace pedl
