#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pedl::test {

/// The number in `count` bytes, the highest first.
inline std::string bigEndian(std::uint32_t number, int count) {
    std::string bytes;
    for (int shift = 8 * (count - 1); shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(number >> shift));
    return bytes;
}

/// A standard MIDI file of these tracks, which hold delta times and events.
inline std::string midiFile(int format, std::uint32_t division,
                            const std::vector<std::string>& tracks) {
    std::string bytes =
        "MThd" + bigEndian(6, 4) + bigEndian(static_cast<std::uint32_t>(format), 2) +
        bigEndian(static_cast<std::uint32_t>(tracks.size()), 2) + bigEndian(division, 2);
    for (const std::string& track : tracks)
        bytes += "MTrk" + bigEndian(static_cast<std::uint32_t>(track.size()), 4) + track;
    return bytes;
}

/// @param delta  ticks, below 128
inline std::string tempo(int delta, std::uint32_t microsecondsPerQuarter) {
    return std::string(1, static_cast<char>(delta)) + "\xFF\x51\x03" +
           bigEndian(microsecondsPerQuarter, 3);
}

inline std::string controller(int delta, int number, int value) {
    return {static_cast<char>(delta), '\xB0', static_cast<char>(number), static_cast<char>(value)};
}

inline const std::string kEndOfTrack("\x00\xFF\x2F\x00", 4);

} // namespace pedl::test
