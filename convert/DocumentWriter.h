#pragma once

#include "convert/Document.h"

#include <cstddef>
#include <span>
#include <vector>

namespace pedl {

/// A document as the plug-in stores it: a program, bank or MIDI-settings file or a host chunk,
/// byte for byte what the plug-in would write.
[[nodiscard]] std::vector<std::byte> storedForm(const Document& document);

/// A host chunk that puts what the document holds into an instance and leaves it the rest: a bank
/// leaves its MIDI links, a program the other slots.
///
/// @param presentChunk  what the instance holds, from its `getChunk`; one that cannot be read
///                      counts as that of a fresh instance
[[nodiscard]] std::vector<std::byte> chunkWith(const Document& document,
                                               std::span<const std::byte> presentChunk);

} // namespace pedl
