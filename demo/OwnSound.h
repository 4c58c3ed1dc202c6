#pragma once

#include "demo/StereoSound.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pedl::demo {

/// Where a longer one is cut: in a longer picture there is less to see.
constexpr double kLongestOwnSeconds = 30.0;

/// A sound of the user's own, heard in place of the material.
struct OwnSound {
    std::string name; ///< of its file, as text that can be shown
    std::string stem; ///< the same without its ending, short enough to begin other files' names
    StereoSound sound;
    std::vector<std::string> notes; ///< what is to be known of it, a line each
};

/// Reads the beginning of any file that the command can render. Mono becomes two equal channels,
/// what is no number silence.
///
/// Throws std::runtime_error with the path and the reason: more than two channels are one.
OwnSound readOwnSound(const std::filesystem::path& file);

} // namespace pedl::demo
