#include "presets/RawReader.h"

#include "tests/presets/LineList.h"
#include "tests/support/GuardedBytes.h"
#include "tests/support/StoredBytes.h"

#include <gtest/gtest.h>
#include <limits>

namespace pedl {
namespace {

using test::GuardedBytes;
using test::LineList;
using test::StoredBytes;
using Lines = std::vector<std::string>;
using enum StoredBytes::Order;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

class RawReader : public testing::Test {
protected:
    RawReader() {
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
            bank.setValue(0, parameter, 0.5F);
        bank.takeEditSnapshot(0);
        empty();
    }

    void empty() {
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
            bank.setRecord(slot, {});
        bank.setValueInEverySlot(kFreqNoteScaleSwitch, 0.125F); // stays where nothing is read
    }

    static ByteOrder orderOf(StoredBytes::Order order) {
        return order == Little ? ByteOrder::Native : ByteOrder::Reversed;
    }
    static StoredBytes file(StoredBytes::Order order, unsigned kind) {
        StoredBytes bytes(order);
        bytes.id().byte(kind);
        return bytes;
    }
    /// Programs with a value of their own for each place, and `spare` bytes too few for one more.
    static void putPrograms(StoredBytes& bytes, int programs, int values, std::size_t spare = 0) {
        for (int program = 0; program < programs; ++program) {
            bytes.name("Old " + std::to_string(program));
            for (int value = 0; value < values; ++value)
                bytes.real(static_cast<float>(program * 56 + value) / 8192.0F);
        }
        bytes.zeros(spare);
    }
    void expectPrograms(int programs, int values) {
        for (int slot = 0; slot < kNumPrograms; ++slot) {
            SCOPED_TRACE(slot);
            const bool isRead = slot < programs;
            EXPECT_EQ(nameText(bank.name(slot)) == "Old " + std::to_string(slot), isRead);
            EXPECT_EQ(bank.value(slot, kFreqNoteScaleSwitch) == 0.125F, !isRead);
            for (int value = 0; isRead && value < kNumParams; ++value)
                ASSERT_EQ(bank.value(slot, value),
                          value < values ? static_cast<float>(slot * 56 + value) / 8192.0F : 0.5F);
        }
    }

    /// @param stated  number of programs in the head
    static StoredBytes chunk(StoredBytes::Order order, std::uint32_t stated,
                             std::uint32_t current) {
        StoredBytes bytes(order);
        bytes.word(0x01000000).id().word(stated).word(current).zeros(16);
        return bytes;
    }
    LoadedBank readChunk(std::span<const std::byte> bytes, ByteOrder order = ByteOrder::Native) {
        const auto raw = openRawChunk(bytes, order);
        EXPECT_TRUE(raw);
        links = readRawLinks(*raw, diagnostics);
        return readRawPrograms(*raw, bank, diagnostics);
    }

    ProgramBank bank;
    MidiLinks links;
    LineList diagnostics;
};

TEST_F(RawReader, ChunkOfAnOlderPlugInFillsItsSlotsInEitherByteOrder) {
    for (const auto order : {Little, Big}) {
        StoredBytes bytes = chunk(order, 128, 100);
        putPrograms(bytes, 128, 40);
        for (int parameter = 0; parameter < 56; ++parameter)
            bytes.real(static_cast<float>(parameter) / 64.0F);
        const LoadedBank loaded = readChunk(bytes.view(), orderOf(order));
        EXPECT_EQ(loaded.currentSlot, 100);
        EXPECT_EQ(loaded.named.count(), 128U);
        expectPrograms(128, 40);
        for (std::size_t parameter = 0; parameter < 56; ++parameter)
            EXPECT_EQ(links.linkValue[parameter], static_cast<float>(parameter) / 64.0F);
        EXPECT_FALSE(links.channelValue);
    }
    EXPECT_EQ(diagnostics.lines, Lines{});
}

TEST_F(RawReader, ChunkSizeDecidesHowManyValuesAProgramHas) {
    struct Row {
        const char* story;
        std::uint32_t stated;
        int written, values;
        std::size_t spare;
        int readPrograms, readValues;
    };
    for (const Row& row : {Row{"names alone", 3, 3, 0, 0, 3, 0}, Row{"rest", 3, 3, 2, 11, 3, 2},
                           Row{"more values than parameters", 2, 2, 70, 0, 2, 56},
                           Row{"more programs than slots", 150, 150, 56, 0, 140, 56},
                           Row{"no room for names", 4, 3, 0, 23, 0, 0},
                           Row{"every program there is", 0xFFFFFFFF, 3, 56, 0, 0, 0}}) {
        SCOPED_TRACE(row.story);
        empty();
        StoredBytes bytes = chunk(Little, row.stated, 140);
        putPrograms(bytes, row.written, row.values, row.spare);
        bytes.zeros(224);
        GuardedBytes guarded(bytes.view());
        EXPECT_EQ(readChunk(guarded.whole()).currentSlot, 0);
        expectPrograms(row.readPrograms, row.readValues);
    }
}

TEST_F(RawReader, BrokenValuesOfAChunkAreReportedWithoutTheirProgram) {
    StoredBytes bytes = chunk(Little, 1, 0);
    bytes.name("Old").real(-kNaN).real(-0.5F).real(1.5F);
    bytes.real(kNaN).real(-1.0F).real(8.0F).zeros(53 * 4);
    readChunk(bytes.view());
    EXPECT_EQ(diagnostics.lines,
              (Lines{"Invalid parameter NaN value nan on set of MIDI old chunk",
                     "Invalid parameter 1 value -1.000000 on set of MIDI old chunk",
                     "Invalid parameter NaN value -nan on set of old chunk",
                     "Invalid parameter 1 value -0.500000 on set of old chunk",
                     "Invalid parameter 2 value 1.500000 on set of old chunk"}));
    EXPECT_EQ(bank.value(0, 0), 0.0F);
    EXPECT_EQ(bank.value(0, 1), 0.0F);
    EXPECT_EQ(bank.value(0, 2), 1.0F);
    EXPECT_FALSE(links.linkValue[0]);
    EXPECT_FALSE(links.linkValue[1]);
    EXPECT_EQ(links.linkValue[2], 8.0F);
}

TEST_F(RawReader, AChunkMayEndAnywhere) {
    StoredBytes bytes = chunk(Little, 2, 1);
    putPrograms(bytes, 2, 3);
    bytes.zeros(224);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        GuardedBytes guarded(bytes.view().first(size));
        const auto raw = openRawChunk(guarded.whole(), ByteOrder::Native);
        ASSERT_EQ(raw.has_value(), size >= 32) << size;
        if (!raw)
            continue;
        EXPECT_EQ(readRawLinks(*raw, diagnostics).linkValue[55].has_value(), size >= 256) << size;
        EXPECT_EQ(readRawPrograms(*raw, bank, diagnostics).named.count(),
                  size >= 256 + 2 * 24 ? 2U : 0U)
            << size;
    }
}

TEST_F(RawReader, BankFileHoldsAllSlots) {
    for (const auto order : {Little, Big}) {
        StoredBytes bytes = file(order, 55);
        putPrograms(bytes, 140, 40, 7);
        const LoadedBank loaded = readRawBank(bytes.view(), orderOf(order), bank, diagnostics);
        EXPECT_TRUE(loaded.named.all());
        EXPECT_EQ(loaded.currentSlot, 0);
        expectPrograms(140, 40);
    }
    StoredBytes tooShort = file(Little, 55);
    tooShort.zeros(140 * 24 - 1);
    EXPECT_TRUE(readRawBank(tooShort.view(), ByteOrder::Native, bank, diagnostics).named.none());
}

TEST_F(RawReader, ProgramFileFillsTheGivenSlot) {
    for (const auto order : {Little, Big}) {
        StoredBytes bytes = file(order, 33);
        bytes.name("Lead").real(0.25F).real(kNaN).real(2.0F).zeros(3);
        EXPECT_TRUE(readRawProgram(bytes.view(), orderOf(order), bank, 8, diagnostics));
        EXPECT_EQ(nameText(bank.name(8)), "Lead");
        EXPECT_EQ(bank.value(8, 0), 0.25F);
        EXPECT_EQ(bank.value(8, 2), 1.0F);
        EXPECT_EQ(bank.value(8, 3), 0.5F);
        EXPECT_EQ(diagnostics.lines,
                  (Lines{"Invalid parameter 1 value NaN on load, preset: 8 Lead",
                         "Invalid parameter 2 value 2.000000 on load, preset: 8 Lead"}));
        diagnostics.lines.clear();
        for (std::size_t size = 0; size < 29; ++size) {
            GuardedBytes guarded(bytes.view().first(size));
            EXPECT_FALSE(readRawProgram(guarded.whole(), orderOf(order), bank, 9, diagnostics));
        }
    }
    EXPECT_EQ(bank.value(9, kGain), 0.0F);
}

TEST_F(RawReader, MidiFileHoldsAsManyLinksAsItIsLong) {
    for (const auto order : {Little, Big}) {
        StoredBytes bytes = file(order, 11);
        bytes.real(0.25F).real(kNaN).real(-1.0F).real(7.5F).real(1.0F).zeros(3);
        GuardedBytes guarded(bytes.view());
        MidiLinks expected;
        expected.linkValue[0] = 0.25F;
        for (std::size_t parameter = 1; parameter < 5; ++parameter)
            expected.linkValue[parameter] = 1.0F;
        EXPECT_EQ(readRawMidi(guarded.whole(), orderOf(order)), expected);
    }
    StoredBytes longer = file(Little, 11);
    longer.zeros(100 * 4);
    EXPECT_EQ(readRawMidi(longer.view(), ByteOrder::Native).linkValue[55], 0.0F);
    EXPECT_EQ(readRawMidi(longer.view().first(3), ByteOrder::Native), MidiLinks{});
}

} // namespace
} // namespace pedl
