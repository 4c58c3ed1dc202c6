#pragma once

#include "presets/MidiLinks.h"
#include "presets/ProgramBank.h"
#include "presets/RecordReader.h"

#include <bitset>
#include <cstdint>

namespace pedl {

class DiagnosticStream;

// What the records of a stream do to the bank, and what they say of the MIDI links.
//
// Values that are not numbers or lie outside 0..1 are repaired, each with a line in `diagnostics`.
// Records with a slot or a parameter that does not exist are stepped over. Nothing is applied to
// the sound; the caller selects the program afterwards. Thread: any but audio.

/// What a bank has brought.
struct LoadedBank {
    std::bitset<kNumPrograms> named; ///< slots that have a new name
    std::int32_t currentSlot = 0;    ///< 0 where the stored one does not exist
};

/// Reads programs into the slots that they belong to. A slot starts from the edit snapshot when its
/// program head comes, so values that are absent are the snapshot's.
LoadedBank readBank(const StreamView& stream, ProgramBank& bank, DiagnosticStream& diagnostics);

/// Reads every program of a stream into one slot (0 to 139), whatever slots are stored.
///
/// @return whether the slot has a new name
bool readProgram(const StreamView& stream, ProgramBank& bank, std::int32_t slot,
                 DiagnosticStream& diagnostics);

/// The MIDI links of a stream: the last usable value of each parameter, and the last link record's
/// channel. Never a channel for a stream that has none; the caller then sets all channels.
[[nodiscard]] MidiLinks readMidiLinks(const StreamView& stream, DiagnosticStream& diagnostics);

/// Whether the links of a stream carry the MIDI channel.
[[nodiscard]] inline bool hasMidiChannel(const StreamHeader& header) noexcept {
    return header.channelMark != 0;
}

} // namespace pedl
