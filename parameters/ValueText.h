#pragma once

#include "parameters/DisplayText.h"
#include "parameters/ParameterCatalogue.h"

namespace pedl {

/// The text that `rule` gives a normalised value in 0..1.
///
/// Thread: any, real time.
[[nodiscard]] DisplayText valueText(TextRule rule, float normalised);

} // namespace pedl
