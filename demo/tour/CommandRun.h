#pragma once

#include "demo/tour/DemoSetting.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pedl::demo {

/// How a rendering went.
struct Rendering {
    double realtimeFactor;      ///< seconds of sound in a second, as the command reports it
    std::uint32_t calendarFrom; ///< seconds since 1970 when the command began ...
    std::uint32_t calendarTo;   ///< ... and ended; the plug-in seeds its random waves in between
};

/// The command's arguments behind `render IN OUT`.
/// @param curves  the folder of the settings' automation curves
std::vector<std::string> renderArguments(const DemoSetting& setting,
                                         const std::filesystem::path& curves);

/// Renders `input` to `output` with the command `zmt-pedlfilter`, as a user would.
///
/// Throws std::runtime_error with the command's own words where it fails.
Rendering renderByCommand(const std::filesystem::path& command, const std::filesystem::path& input,
                          const std::filesystem::path& output, const DemoSetting& setting,
                          const std::filesystem::path& curves);

} // namespace pedl::demo
