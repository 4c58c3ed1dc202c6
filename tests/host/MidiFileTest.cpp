#include "host/MidiFile.h"

#include "tests/host/MidiBytes.h"
#include "tests/support/Results.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pedl {
namespace {

using namespace test;
using namespace std::string_literals;

Result<MidiFile> parsed(const std::string& bytes) {
    return MidiFile::parse(std::as_bytes(std::span(bytes)));
}

/// What is in a file: "ticks:bytes" of a message, in hexadecimal digits of two; "ticks:beats/unit"
/// of a time signature, "ticks:bpm" of a tempo.
std::string eventsOf(const std::string& bytes) {
    std::ostringstream text;
    for (const MidiFile::Event& event : valueOf(parsed(bytes)).events) {
        text << event.ticks << ':';
        if (const auto* message = std::get_if<ChannelMessage>(&event.content))
            for (const int byte : message->bytes)
                text << std::hex << byte / 16 << byte % 16 << std::dec;
        else if (const auto* bar = std::get_if<SignatureChange>(&event.content))
            text << bar->beatsPerBar << '/' << bar->beatUnit;
        else
            text << std::get<TempoChange>(event.content).bpm;
        text << ' ';
    }
    return text.str();
}

TEST(MidiFile, KeepsMessagesTempoAndTimeSignatureAndPassesOverTheRest) {
    struct Row {
        const char* story;
        std::string track;
        const char* events;
    };
    // clang-format off
    for (const Row& row : {
        Row{"every kind", "\x01\x81\x3C\x40\x01\x91\x3C\x40\x01\xA1\x3C\x05\x01\xB1\x07\x08\x01\xC1\x09"
                          "\x01\xD1\x0A\x01\xE1\x0B\x0C"s,
            "1:813c40 2:913c40 3:a13c05 4:b10708 5:c10900 6:d10a00 7:e10b0c "},
        Row{"tempo and bars", tempo(2, 400000) + "\x03\xFF\x58\x04\x07\x03\x18\x08"s, "2:150 5:7/8 "},
        Row{"a long text", "\x00\xFF\x01\x81\x48"s + std::string(200, 'a') + controller(1, 2, 3), "1:b00203 "},
        Row{"divided system exclusive", "\x00\xF0\x02\x01\x02\x05\xF7\x02\x03\xF7"s + controller(1, 2, 3),
            "6:b00203 "},
        Row{"a delta time of two bytes", "\x81\x00"s + controller(0, 2, 3).substr(1), "128:b00203 "},
    }) {
        // clang-format on
        SCOPED_TRACE(row.story);
        for (const std::string& end : {kEndOfTrack, ""s})
            EXPECT_EQ(eventsOf(midiFile(0, 96, {row.track + end})), row.events);
    }
}

TEST(MidiFile, TracksAreMergedByTimeAndTheDivisionIsRead) {
    const std::string first = controller(4, 1, 1) + controller(4, 1, 2);
    const std::string merged =
        midiFile(1, 0xE278, {first, controller(0, 2, 1) + controller(4, 2, 2)});
    EXPECT_EQ(eventsOf(merged), "0:b00201 4:b00101 4:b00202 8:b00102 ");
    const MidiFile film = valueOf(parsed(merged)); // -30, 120
    EXPECT_EQ(film.ticksPerSecond, 3600.0);
    EXPECT_EQ(film.ticksPerQuarter, 0.0);
    EXPECT_NEAR(valueOf(parsed(midiFile(0, 0xE30A, {first}))).ticksPerSecond, 299.7,
                0.001); // -29, 10
    EXPECT_EQ(valueOf(parsed(midiFile(0, 960, {first}))).ticksPerQuarter, 960.0);
}

TEST(MidiFile, ADamagedFileIsRefusedWithTheReason) {
    struct Row {
        const char* story;
        std::string bytes;
        const char* says;
    };
    const std::string good = midiFile(0, 96, {tempo(0, 500000) + controller(1, 2, 3)});
    const auto oneTrack = [](const std::string& track) { return midiFile(0, 96, {track}); };
    std::string late;
    for (int i = 0; i < 12; ++i)
        late += "\xFF\xFF\xFF"s + controller(0x7F, 1, 2);
    // clang-format off
    for (const Row& row : {
        Row{"words", "these are words, and many of them", "is not a MIDI file"},
        Row{"a track too few", good.substr(0, 11) + "\x02" + good.substr(12), "damaged at byte"},
        Row{"format 2", midiFile(2, 96, {""}), "format 2"},
        Row{"wild event length", oneTrack("\x00\xFF\x01\xFF\xFF\xFF\x7F"s), "damaged at byte"},
        Row{"endless running status", oneTrack(std::string(5000, '\x01')), "damaged at byte"},
        Row{"a data byte above 127", oneTrack("\x00\xB0\x01\x90"s), "data byte above 127"},
        Row{"a short tempo", oneTrack("\x00\xFF\x51\x01\x07"s), "not a tempo"},
        Row{"a tempo of 0", oneTrack(tempo(0, 0)), "not a tempo"},
        Row{"0 beats a bar", oneTrack("\x00\xFF\x58\x04\x00\x02\x18\x08"s), "not a time signature"},
        Row{"years", oneTrack(late), "later than any song"},
    }) {
        // clang-format on
        SCOPED_TRACE(row.story);
        const std::string problem = problemOf(parsed(row.bytes));
        EXPECT_NE(problem.find(row.says), std::string::npos) << problem;
        EXPECT_EQ(problem.find('\n'), std::string::npos);
    }
    for (std::size_t length = 0; length < good.size(); ++length)
        EXPECT_FALSE(parsed(good.substr(0, length)).ok()) << length;
}

} // namespace
} // namespace pedl
