#pragma once

#include "foundation/text/Result.h"
#include "host/CommandLine.h"
#include "host/RenderCommand.h"
#include "host/ShowCommand.h"

#include <vector>

namespace pedl {

/// The files that are read, and the one that comes of them: the last on the line.
struct SourcesAndTarget {
    std::vector<std::string> sources;
    std::string target;
};
Result<SourcesAndTarget> sourcesAndTarget(const CommandLine& line);

/// The library that the command line names, else the one of ours that is found.
Result<std::filesystem::path> pluginFor(const CommandLine& line);

/// What the plug-in is to hold before it is heard, seen or listed.
[[nodiscard]] StartingState startingState(const CommandLine& line);

// What `render` and `show` are asked for, the plug-in apart: the numbers of the command line,
// which it holds as text, are read and within their ranges.

/// One request for each file that is to be rendered.
Result<std::vector<RenderRequest>> renderRequests(const CommandLine& line);
Result<ShowRequest> showRequest(const CommandLine& line);

} // namespace pedl
