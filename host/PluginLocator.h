#pragma once

#include "foundation/text/Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pedl {

/// Where the command looks for the plug-in, in this order: beside itself, in the build tree, where
/// it is installed relative to the command, and where plug-ins are installed on this machine.
/// @param commandFolder  the folder of the running program
[[nodiscard]] std::vector<std::filesystem::path>
pluginPlaces(const std::filesystem::path& commandFolder);

/// The first of those places that has the plug-in, or a line that names them all.
Result<std::filesystem::path> findPlugin();

/// What `--plugin` names: a path, or the name of a library, with or without its ending, in the
/// folders where hosts look for VST 2.4 plug-ins: those of `VST_PATH`, `~/.vst`,
/// `/usr/local/lib/vst` and
/// `/usr/lib/vst`. What has a slash, or is a file in the current folder, is a path.
Result<std::filesystem::path> findPlugin(const std::string& named);

} // namespace pedl
