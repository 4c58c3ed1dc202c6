#pragma once

#include "parameters/DisplayText.h"
#include "parameters/ParameterCatalogue.h"

namespace pedl {

/// The text that `rule` gives a normalised value in 0..1.
///
/// Thread: any, real time.
[[nodiscard]] DisplayText valueText(TextRule rule, float normalised);

/// The unit of the numbers that `rule` gives and does not write; empty where there is none.
[[nodiscard]] std::string_view valueUnit(TextRule rule) noexcept;

} // namespace pedl
