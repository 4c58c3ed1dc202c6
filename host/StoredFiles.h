#pragma once

#include "foundation/text/Result.h"
#include "host/Plugin.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pedl {

/// What a stored file gives our own plug-in.
enum class StoredPart {
    Bank,        ///< from a bank; a host chunk brings its MIDI links as well
    Program,     ///< into the current slot
    MidiSettings ///< the MIDI links and the channel
};

/// Hands a file's content to the plug-in as a host does, in a chunk: a program, bank or
/// MIDI-settings file, a host chunk, or the text form of any. What the file does not hold stays.
///
/// @return what was repaired in reading, a line each that begins with the path
Result<std::vector<std::string>> loadStoredFile(Plugin& plugin, StoredPart part,
                                                const std::filesystem::path& path);

} // namespace pedl
