#include "presets/StreamReader.h"

#include "presets/StreamWriter.h"
#include "tests/presets/LineList.h"
#include "tests/support/GuardedBytes.h"
#include "tests/support/StoredBytes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace pedl {
namespace {

using test::GuardedBytes;
using test::LineList;
using test::StoredBytes;
using Lines = std::vector<std::string>;
using enum StoredBytes::Order;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

class StreamReader : public testing::Test {
protected:
    StreamReader() {
        bank.setName(0, "Default");
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
            bank.setValue(0, parameter, 0.5F);
        bank.takeEditSnapshot(0);
        bank.setName(0, "First");
    }

    ProgramBank bank;
    LineList diagnostics;

    static StreamView open(std::span<const std::byte> bytes, ByteOrder order = ByteOrder::Native) {
        const auto stream = openStream(bytes, order);
        EXPECT_TRUE(stream);
        return stream.value_or(StreamView{});
    }
    [[nodiscard]] std::string_view nameOf(std::int32_t slot) {
        read_ = bank.name(slot);
        return nameText(read_);
    }
    [[nodiscard]] bool isUntouched(std::int32_t slot) {
        return nameOf(slot).empty() && bank.value(slot, kGain) == 0.0F;
    }

private:
    ProgramName read_{};
};

TEST_F(StreamReader, ByteOrderIsThatOfTheIdentifier) {
    EXPECT_EQ(byteOrderOf(0x5A4D7046), ByteOrder::Native);
    EXPECT_EQ(byteOrderOf(0x46704D5A), ByteOrder::Reversed);
    for (const std::uint32_t foreign : {0U, 0x5A4D7047U, 0x4D5A4670U, 0xFFFFFFFFU})
        EXPECT_FALSE(byteOrderOf(foreign)) << foreign;
}

TEST_F(StreamReader, ReadsABankInEitherByteOrder) {
    for (const auto order : {Little, Big}) {
        bank.setRecord(7, {});
        StoredBytes bytes(order);
        bytes.header({.records = 4, .slot = 9, .recordBytes = 264});
        bytes.programHead(7, "Cat").value(7, 1, 0.25F).value(139, 55, 1.0F).word(3).word(0).word(7);
        const StreamView stream =
            open(bytes.view(), order == Little ? ByteOrder::Native : ByteOrder::Reversed);
        EXPECT_EQ(stream.header, (StreamHeader{StreamKind::Bank, 0x01000000, 56, 4, 9, 264, 13}));
        const LoadedBank loaded = readBank(stream, bank, diagnostics);
        EXPECT_EQ(loaded.currentSlot, 9);
        EXPECT_EQ(loaded.named.to_string().find('1'), 139U - 7U);
        EXPECT_EQ(loaded.named.count(), 1U);
        EXPECT_EQ(nameOf(7), "Cat");
        EXPECT_EQ(bank.value(7, kGain), 0.25F);
        EXPECT_EQ(bank.value(7, kPower), 0.5F) << "an absent value is the edit snapshot's";
        EXPECT_EQ(bank.value(139, 55), 1.0F);
        EXPECT_EQ(diagnostics.lines, Lines{});
    }
}

TEST_F(StreamReader, BrokenValuesOfABankAreRepairedAndReported) {
    StoredBytes bytes;
    bytes.header({.records = 8});
    bytes.programHead(12, "Organ").value(12, 3, kNaN).value(12, 4, -0.25F).value(12, 5, 1.5F);
    bytes.value(12, 6, std::numeric_limits<float>::infinity()).value(12, 7, -0.0F);
    bytes.value(12, 56, 2.0F).value(140, 3, kNaN);
    readBank(open(bytes.view()), bank, diagnostics);
    EXPECT_EQ(diagnostics.lines,
              (Lines{"Invalid parameter 3 value NaN on load of preset 12 Organ",
                     "Invalid parameter 4 value -0.250000 on load of preset 12 Organ",
                     "Invalid parameter 5 value 1.500000 on load of preset 12 Organ",
                     "Invalid parameter 6 value inf on load of preset 12 Organ",
                     "Invalid parameter 56 value 2.000000 on load of preset 12 Organ"}));
    const float expected[] = {0.0F, 0.0F, 1.0F, 1.0F};
    for (std::int32_t i = 0; i < 4; ++i)
        EXPECT_EQ(bank.value(12, 3 + i), expected[i]) << i;
    EXPECT_TRUE(std::signbit(bank.value(12, 7))) << "a zero with a sign is a value like others";
}

TEST_F(StreamReader, ProgramGoesIntoTheGivenSlotWhateverIsStored) {
    StoredBytes bytes;
    bytes.header({.kind = 34, .records = 5, .slot = 3});
    bytes.programHead(200, "Lead").value(5, 1, 0.75F).value(9, 2, kNaN);
    bytes.value(0, 3, 7.0F).value(0, 0xFFFFFFFF, -1.0F);
    EXPECT_TRUE(readProgram(open(bytes.view()), bank, 20, diagnostics));
    EXPECT_EQ(nameOf(20), "Lead");
    EXPECT_EQ(bank.value(20, 1), 0.75F);
    EXPECT_EQ(bank.value(20, 2), 0.0F);
    EXPECT_EQ(bank.value(20, 3), 1.0F);
    EXPECT_TRUE(isUntouched(5));
    EXPECT_EQ(diagnostics.lines,
              (Lines{"Invalid parameter 2 value NaN on load, preset: 20 Lead",
                     "Invalid parameter 3 value 7.000000 on load, preset: 20 Lead",
                     "Invalid parameter -1 value -1.000000 on load, preset: 20 Lead"}));
}

TEST_F(StreamReader, KeepsTheLastUsableLinkAndTheLastChannel) {
    StoredBytes bytes;
    bytes.header({.kind = 13, .records = 9});
    bytes.link(1, 0.5F, 0.1F).link(1, kNaN, 0.2F).link(2, -0.5F, 0.3F).link(3, 1.0F, 0.4F);
    bytes.link(4, 7.748F, 0.5F).link(5, 0.25F, 0.6F).link(5, 0.75F, 0.7F).value(0, 6, 0.5F);
    bytes.link(56, 0.5F, -1.0F);
    const MidiLinks links = readMidiLinks(open(bytes.view()), diagnostics);
    MidiLinks expected;
    expected.linkValue[1] = 0.5F;
    expected.linkValue[5] = 0.75F;
    expected.channelValue = 1.0F; // the last record's, which lies outside
    EXPECT_EQ(links, expected);
    EXPECT_EQ(diagnostics.lines, (Lines{"Invalid parameter NaN value nan on load of MIDI",
                                        "Invalid parameter 2 value -0.500000 on load of MIDI"}));
}

TEST_F(StreamReader, AStreamWithoutAChannelGivesNone) {
    StoredBytes bytes;
    bytes.header({.kind = 12, .records = 1, .channelMark = 0}).link(1, 0.5F, 0.25F);
    EXPECT_FALSE(readMidiLinks(open(bytes.view()), diagnostics).channelValue);
    // Not a mark of ours, yet not 0 either.
    bytes.bytes()[29] = std::byte{1};
    EXPECT_EQ(readMidiLinks(open(bytes.view()), diagnostics).channelValue, 0.25F);
}

TEST_F(StreamReader, StoredNamesKeepAllTheirBytesButAreAlwaysEnded) {
    const std::string endless(24, 'x');
    const std::string withRest = std::string("ab\0rest", 7) + std::string(17, '#');
    StoredBytes bytes;
    bytes.header({.records = 2}).programHead(1, endless).programHead(2, withRest);
    readBank(open(bytes.view()), bank, diagnostics);
    EXPECT_EQ(nameOf(1), std::string(23, 'x'));
    EXPECT_EQ(nameOf(2), "ab");
    const ProgramName kept = bank.name(2);
    EXPECT_EQ(std::string_view(kept.data(), kept.size()), withRest);
}

TEST_F(StreamReader, AFileEndsAtItsStatedSizeAndAtItsEnd) {
    StoredBytes bytes;
    bytes.header({.records = 2, .recordBytes = 32}).value(1, 1, 0.5F).value(2, 1, 0.5F);
    EXPECT_EQ(openSizedStream(bytes.view(), ByteOrder::Native)->records.size(), 32U);
    EXPECT_EQ(openStream(bytes.view(), ByteOrder::Native)->records.size(), 64U);
    bytes.bytes()[24] = std::byte{0xFF}; // the size's most significant byte
    EXPECT_EQ(openSizedStream(bytes.view(), ByteOrder::Native)->records.size(), 64U);
    EXPECT_FALSE(openSizedStream(bytes.view().first(40), ByteOrder::Native));
}

// Damage

/// What of a bank stream of values, one for parameter 1 of each slot, has arrived in the bank.
std::string arrivedSlots(const ProgramBank& bank) {
    std::string slots;
    for (std::int32_t slot = 1; slot < 9; ++slot)
        if (bank.value(slot, kGain) == 0.25F)
            slots += std::to_string(slot);
    return slots;
}

TEST_F(StreamReader, SizesAndCountsAreNeverTrusted) {
    struct Row {
        const char* story;
        std::uint32_t count, size;
        const char* arrived;
    };
    for (const Row& row :
         {Row{"as written", 4, 20, "1234"}, Row{"counts fewer", 2, 20, "12"},
          Row{"counts none", 0, 20, ""}, Row{"counts more", 5, 20, "1234"},
          Row{"counts everything", 0xFFFFFFFF, 20, "1234"}, Row{"too long", 4, 85, "1"},
          Row{"just reaches the end", 4, 84, "12"}, Row{"steps over the next", 4, 52, "124"},
          Row{"as long as can be", 4, 0xFFFFFFFF, "1"}, Row{"adds up to 0", 4, 0xFFFFFFF4, "1"},
          Row{"negative", 4, 0x80000000, "1"}}) {
        SCOPED_TRACE(row.story);
        ProgramBank fresh;
        StoredBytes bytes;
        bytes.header({.records = row.count, .recordBytes = 0xFFFFFFFF}).value(1, 1, 0.25F);
        bytes.word(1).word(row.size).word(2).word(1).zeros(8).real(0.25F).zeros(4);
        bytes.value(3, 1, 0.25F).value(4, 1, 0.25F);
        GuardedBytes guarded(bytes.view());
        readBank(open(guarded.whole()), fresh, diagnostics);
        EXPECT_EQ(arrivedSlots(fresh), row.arrived);
    }
}

TEST_F(StreamReader, ARecordTooShortForItsFieldsIsSteppedOver) {
    StoredBytes bytes;
    bytes.header({.records = 5}).word(0).word(23).word(1).zeros(23).word(1).word(15).word(1);
    bytes.zeros(15).word(2).word(19).word(0).zeros(19).word(1).word(0).word(1).value(2, 1, 0.25F);
    GuardedBytes guarded(bytes.view());
    EXPECT_TRUE(readBank(open(guarded.whole()), bank, diagnostics).named.none());
    EXPECT_TRUE(isUntouched(1));
    EXPECT_EQ(arrivedSlots(bank), "2");
    EXPECT_EQ(readMidiLinks(open(guarded.whole()), diagnostics), MidiLinks{});
}

TEST_F(StreamReader, WhatWasWholeArrivesWhereverTheBytesEnd) {
    StoredBytes bytes;
    bytes.header({.records = 0xFFFFFFFF});
    std::vector<std::size_t> ends;
    for (std::uint32_t slot = 1; slot < 9; ++slot) {
        bytes.programHead(slot, "Cat").value(slot, 1, 0.25F).link(slot, 0.5F, 0.5F);
        ends.push_back(bytes.size());
    }
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        SCOPED_TRACE(size);
        GuardedBytes guarded(bytes.view().first(size));
        const auto stream = openStream(guarded.whole(), ByteOrder::Native);
        ASSERT_EQ(stream.has_value(), size >= 41);
        if (!stream)
            continue;
        ProgramBank fresh;
        const LoadedBank loaded = readBank(*stream, fresh, diagnostics);
        const MidiLinks links = readMidiLinks(*stream, diagnostics);
        for (std::uint32_t slot = 1; slot < 9; ++slot) {
            const std::size_t end = ends[slot - 1];
            EXPECT_EQ(loaded.named[slot], size >= end - 64);
            EXPECT_EQ(fresh.value(static_cast<std::int32_t>(slot), kGain) == 0.25F,
                      size >= end - 32);
            EXPECT_EQ(links.linkValue[slot].has_value(), size >= end);
        }
    }
    EXPECT_EQ(diagnostics.lines, Lines{});
}

TEST_F(StreamReader, RandomBanksReturnFromTheirStreams) {
    std::mt19937 random(20261124);
    for (int round = 0; round < 20; ++round) {
        ProgramBank written;
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
            written.setName(slot,
                            std::string(random() % 25, static_cast<char>(random() % 255 + 1)));
            for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
                written.setValue(slot, parameter,
                                 static_cast<float>(random()) / static_cast<float>(random.max()));
        }
        written.setCurrentSlot(static_cast<std::int32_t>(random() % kPrograms));
        const StreamBytes stream = writeBank(written, diagnostics);
        const LoadedBank loaded =
            readBank(*openSizedStream(stream, ByteOrder::Native), bank, diagnostics);
        EXPECT_EQ(loaded.currentSlot, written.currentSlot());
        EXPECT_TRUE(loaded.named.all());
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
            EXPECT_EQ(bank.name(slot), written.name(slot));
            EXPECT_EQ(bank.record(slot).normalised, written.record(slot).normalised);
        }
    }
    EXPECT_EQ(diagnostics.lines, Lines{});
}

} // namespace
} // namespace pedl
