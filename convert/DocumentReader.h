#pragma once

#include "convert/Document.h"
#include "foundation/text/Result.h"

#include <cstddef>
#include <span>
#include <string>

namespace pedl {

/// A text form larger than this is not one of ours: that of a chunk has less than 1 MiB.
constexpr std::size_t kMaxTextBytes = std::size_t{1} << 24;

/// Reads a program, bank or MIDI-settings file, a host chunk or the text form of any of them.
///
/// What it is shows in the contents; the name does not count. Layouts from before there were
/// streams, both byte orders and version-1 chunks are read. Damage is repaired as the plug-in
/// repairs it and listed in the document's warnings.
///
/// @param path  a file, or "-" for standard input
/// @return the document, or one line that begins with the path
Result<Document> readDocument(const std::string& path);

/// The same for contents at hand; the problem's line does not say whose.
Result<Document> documentOf(std::span<const std::byte> contents);

} // namespace pedl
