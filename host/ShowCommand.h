#pragma once

#include "foundation/text/Result.h"
#include "host/StartingState.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pedl {

/// What `zmt-pedlfilter show` was asked for, numbers in range already.
struct ShowRequest {
    std::filesystem::path plugin;
    StartingState start;
    std::optional<std::filesystem::path> play;       // a sound file, in a loop
    std::optional<std::filesystem::path> screenshot; // the picture, after which the window closes
    std::optional<double> scale;                     // for editors that read `ZMT_EDITOR_SCALE`
    std::optional<double> seconds;                   // until the window closes by itself
};

/// What became of it.
struct ShowReport {
    int widthPixels = 0; // of the picture
    int heightPixels = 0;
};

/// Opens the plug-in's editor in a window and returns when it was closed: by its button, by an end
/// signal, or by what the request says. Warnings and what is heard are told as they come.
///
/// Thread: the one that starts the program, for an editor belongs to it.
Result<ShowReport> show(const ShowRequest& request);

} // namespace pedl
