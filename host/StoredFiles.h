#pragma once

#include "convert/Document.h"
#include "foundation/text/Result.h"
#include "host/Plugin.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pedl {

/// The option of `render` that takes a file of this kind: that of a bank for a host chunk too.
[[nodiscard]] const char* storedFileOption(DocumentKind kind) noexcept;

/// Hands a file's content to the plug-in as a host does, in a chunk: a program, bank or
/// MIDI-settings file, a host chunk, or the text form of any. What the file does not hold stays.
///
/// @param kind  what the file is to hold: a program goes into the current slot, a bank can come in
///              a host chunk, which brings its MIDI links as well
/// @return what was repaired in reading, a line each that begins with the path
Result<std::vector<std::string>> loadStoredFile(Plugin& plugin, DocumentKind kind,
                                                const std::filesystem::path& path);

} // namespace pedl
