#pragma once

#include "convert/Conversion.h"
#include "convert/Difference.h"
#include "convert/DocumentReader.h"
#include "foundation/text/Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pedl {

/// The bytes of a text form.
[[nodiscard]] std::string textOf(const Conversion& conversion);

/// Replaces the file at `out` whole, or leaves it as it is.
///
/// @return the line that tells what was written
Result<std::string> writeConversion(const Conversion& conversion, const std::string& out);

/// Writes them into a folder, which is made where it is missing.
///
/// @return the line that tells how many were written where
Result<std::string> writeProgramFiles(const std::vector<ProgramFile>& files,
                                      const std::filesystem::path& folder);

} // namespace pedl
