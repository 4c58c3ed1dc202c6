#pragma once

#include "foundation/text/Result.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace pedl {

/// A file that a command reads, and what a message calls it: "is the plug-in itself".
struct InputFile {
    std::optional<std::filesystem::path> path; // none: it is not read
    const char* is = "is a file that is read";
};

/// Refuses an output that is one of the inputs, be it through links.
Done checkIsNone(const std::filesystem::path& output, const std::vector<InputFile>& inputs);

} // namespace pedl
