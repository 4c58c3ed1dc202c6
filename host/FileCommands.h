#pragma once

#include "host/CommandLine.h"

namespace pedl {

// The sub-commands that have to do with stored files alone: they need no plug-in.

/// @return the exit status
int runConvert(const CommandLine& line);

/// @return 0, 1 or 2, as diff(1)
int runDiff(const CommandLine& line);

} // namespace pedl
