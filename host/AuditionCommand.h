#pragma once

#include "foundation/text/Result.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pedl {

/// What `audition` is asked for.
struct AuditionRequest {
    std::vector<std::filesystem::path> materials; ///< none: the command's own
    std::optional<std::filesystem::path> bank;    ///< none: the factory's
    std::vector<std::string> programs;            ///< names or slots; none: all
    std::filesystem::path out;                    ///< a folder
};

/// Renders programs of ZMT pedlFilter and leaves `index.html` with their sounds and pictures in the
/// folder. Implemented in `audition/`, which plays the effect itself: no host sees what moves the
/// cut-off.
///
/// @return a line that tells what was written
Result<std::string> renderAudition(const AuditionRequest& request);

} // namespace pedl
