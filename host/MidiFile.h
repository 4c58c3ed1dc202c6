#pragma once

#include "foundation/text/Result.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace pedl {

/// A message on one of the 16 channels: status and data bytes, unused ones 0.
struct ChannelMessage {
    std::array<std::uint8_t, 3> bytes{};
};

struct TempoChange {
    double bpm = 120.0;
};

/// A new bar begins where it stands.
struct SignatureChange {
    int beatsPerBar = 4;
    int beatUnit = 4; // 4: a quarter note
};

/// What a standard MIDI file holds for an effect, times as they stand in the file: in ticks.
///
/// Formats 0 and 1, in ticks a quarter note or in parts of a film frame. Notes and all other
/// channel messages are kept; system exclusive messages, texts and the like are passed over.
struct MidiFile {
    struct Event {
        std::int64_t ticks = 0; // from the song's start, at most `kMostTicks`
        std::variant<ChannelMessage, TempoChange, SignatureChange> content;
    };
    static constexpr std::int64_t kMostTicks = std::int64_t{1} << 31;

    double ticksPerQuarter = 0.0; // 0 where the file's time is absolute
    double ticksPerSecond = 0.0;  // else this
    std::vector<Event> events;    // by time; at one time, by track and place in it

    /// Which controllers, 0 to 119, it moves: on one channel, 1 to 16, or on any with 0.
    [[nodiscard]] std::set<int> controllers(int channel = 0) const;

    /// Reads a regular file of up to 16 MiB. A damaged one is refused, with the place.
    /// @return the file, or one line that begins with the path
    static Result<MidiFile> load(const std::filesystem::path& path);

    /// The same for bytes at hand; the problem's line does not say whose.
    static Result<MidiFile> parse(std::span<const std::byte> bytes);
};

} // namespace pedl
