#pragma once

#include <cstddef>
#include <span>

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

/// The TrueType file of the embedded face that has the bold and italic bits of `style`.
///
/// Read-only data of the library: nothing is loaded or unpacked.
std::span<const std::byte> embeddedFont(int32_t style);

} // namespace VSTGUI
