#pragma once

#include "foundation/text/Result.h"
#include "host/RenderCommand.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pedl {

/// Requests that render many files alike into one folder, each under its own name with the ending
/// of its format. The folder is made where it is missing.
///
/// @param common  what holds for all; its `in` and `out` do not count, and without a format each
/// file
///                keeps that of its ending, or becomes a WAV
/// @return a problem where two of them would be one file, or the folder is none
Result<std::vector<RenderRequest>> renderBatch(const RenderRequest& common,
                                               const std::vector<std::string>& files,
                                               const std::filesystem::path& folder);

} // namespace pedl
