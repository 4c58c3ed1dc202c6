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

/// An old host chunk, opened.
struct RawChunkView {
    std::uint32_t programs = 0; ///< as stated; 0 makes it no chunk of ours
    std::uint32_t currentSlot = 0;
    std::span<const std::byte> programBytes;
    std::span<const std::byte> linkBytes; ///< empty where the bytes end before
    ByteOrder order = ByteOrder::Native;
};

/// Opens an old host chunk. Nothing where the bytes end within its head.
///
/// @param chunk  the whole chunk, version and identifier included
[[nodiscard]] std::optional<RawChunkView> openRawChunk(std::span<const std::byte> chunk,
                                                       ByteOrder order) noexcept;

/// The programs of an old host chunk, into slots 0 to 139.
LoadedBank readRawPrograms(const RawChunkView& chunk, ProgramBank& bank,
                           DiagnosticStream& diagnostics);

/// The links of an old host chunk: every usable value. It has no channel.
[[nodiscard]] MidiLinks readRawLinks(const RawChunkView& chunk, DiagnosticStream& diagnostics);

/// An old bank file: 140 programs. The file knows no current slot, so it is 0.
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
