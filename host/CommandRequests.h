#pragma once

#include "foundation/text/Result.h"
#include "host/CommandLine.h"
#include "host/RenderCommand.h"
#include "host/ShowCommand.h"

namespace pedl {

/// The library that the command line names, else the one of ours that is found.
Result<std::filesystem::path> pluginFor(const CommandLine& line);

/// What the plug-in is to hold before it is heard, seen or listed.
[[nodiscard]] StartingState startingState(const CommandLine& line);

/// What `render` and `show` are asked for, the plug-in apart: the numbers of the command line,
/// which it holds as text, are read and within their ranges.
Result<RenderRequest> renderRequest(const CommandLine& line);
Result<ShowRequest> showRequest(const CommandLine& line);

} // namespace pedl
