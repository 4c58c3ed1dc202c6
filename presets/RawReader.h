#pragma once

#include "presets/ByteOrder.h"
#include "presets/MidiLinks.h"
#include "presets/StreamReader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace pedl {

class DiagnosticStream;

// The layouts from before there were streams: names and values one behind the other, without
// records. Read only.
//
// A layout says how many programs it has but not how many values each: the size decides, so an old
// plug-in with fewer parameters is read as well. What a program has no values for is the edit
// snapshot's. Values are repaired and reported as those of a stream. Thread: any but audio.

/// What an old host chunk has brought.
struct LoadedRawChunk {
    LoadedBank bank;
    MidiLinks links; ///< without a channel; a value of 1 or more is a parameter without a link
};

/// An old host chunk: programs into the bank, then the links of all parameters.
///
/// @param chunk  the whole chunk, version and identifier included
/// @return       nothing, and the bank as it was, for a chunk that counts no programs
[[nodiscard]] std::optional<LoadedRawChunk> readRawChunk(std::span<const std::byte> chunk,
                                                         ByteOrder order, ProgramBank& bank,
                                                         DiagnosticStream& diagnostics);

/// An old bank file: 140 programs. The stored data know no current slot, so it is 0.
///
/// @param file  the whole file, identifier and kind included
LoadedBank readRawBank(std::span<const std::byte> file, ByteOrder order, ProgramBank& bank,
                       DiagnosticStream& diagnostics);

/// An old program file, into one slot (0 to 139).
///
/// @param file  the whole file, identifier and kind included
/// @return      whether the slot has a new name
bool readRawProgram(std::span<const std::byte> file, ByteOrder order, ProgramBank& bank,
                    std::int32_t slot, DiagnosticStream& diagnostics);

/// An old MIDI-settings file: a link value for each parameter, as many as there are. One outside
/// 0..1 becomes 1, which is no link. The file has no channel: the caller sets all channels.
///
/// @param file  the whole file, identifier and kind included
[[nodiscard]] MidiLinks readRawMidi(std::span<const std::byte> file, ByteOrder order);

} // namespace pedl
