#pragma once

#include "convert/Document.h"
#include "foundation/text/Result.h"

#include <string>
#include <vector>

namespace pedl {

/// What differs between two documents, a line each, in the texts that the plug-in shows:
///
///     3 "Auto Wah"  Filter Cutoff: 1002 Hz -> 440 Hz
///
/// Values whose texts are the same, and those that have none, are given as numbers. A program is
/// compared with the current one of a bank or a chunk. Where a chunk has MIDI links, that is a
/// difference to every bank.
///
/// @return the lines, none for documents that hold the same; a problem where there is nothing to
///         compare
Result<std::vector<std::string>> differences(const Document& from, const Document& to);

} // namespace pedl
