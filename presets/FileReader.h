#pragma once

#include "presets/MidiLinks.h"
#include "presets/ProgramBank.h"
#include "presets/StoredState.h"
#include "presets/StreamReader.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace pedl {

class DiagnosticStream;

// What files, user defaults and memories hold: told apart by identifier and kind, then read as a
// stream or as one of the layouts from before there were streams. Nothing but bank and links is
// touched, and nothing where the result is not `Loaded`. Thread: any but audio.

struct BankFromFile {
    LoadResult result = LoadResult::TooShort;
    LoadedBank bank;
};

struct ProgramFromFile {
    LoadResult result = LoadResult::TooShort;
    bool isNamed = false; ///< the slot has a new name
};

struct MidiFromFile {
    LoadResult result = LoadResult::TooShort;
    MidiLinks links;
    bool replacesAll = true; ///< links that the file does not have are taken away
};

[[nodiscard]] BankFromFile readBankFile(std::span<const std::byte> file, OrderDecision decision,
                                        ProgramBank& bank, DiagnosticStream& diagnostics);

/// Reads a program into one slot (0 to 139).
[[nodiscard]] ProgramFromFile readProgramFile(std::span<const std::byte> file,
                                              OrderDecision decision, ProgramBank& bank,
                                              std::int32_t slot, DiagnosticStream& diagnostics);

/// A file whose layout has no channel brings all channels.
[[nodiscard]] MidiFromFile readMidiFile(std::span<const std::byte> file, OrderDecision decision,
                                        DiagnosticStream& diagnostics);

} // namespace pedl
