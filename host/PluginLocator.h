#pragma once

#include "foundation/text/Result.h"

#include <filesystem>
#include <vector>

namespace pedl {

/// Where the command looks for the plug-in, in this order: beside itself, in the build tree, where
/// it is installed relative to the command, and where it is installed on this machine.
/// @param commandFolder  the folder of the running program
[[nodiscard]] std::vector<std::filesystem::path>
pluginPlaces(const std::filesystem::path& commandFolder);

/// The first of those places that has the plug-in, or a line that names them all.
Result<std::filesystem::path> findPlugin();

} // namespace pedl
