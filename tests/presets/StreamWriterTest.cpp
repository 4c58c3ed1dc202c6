#include "presets/StreamWriter.h"

#include "tests/presets/Journal.h"
#include "tests/support/StoredBytes.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace pedl {
namespace {

using test::Journal;
using test::StoredBytes;
using Lines = std::vector<std::string>;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kNoLink = 999.5F / 129.0F;

/// A value of its own for each place.
float valueAt(std::int32_t slot, std::int32_t index) {
    return static_cast<float>(slot * 56 + index) / 8192.0F;
}

class StreamWriter : public testing::Test {
protected:
    StreamWriter() {
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
            bank.setName(slot, "Program " + std::to_string(slot));
            for (std::int32_t index = 0; index < kNumParams; ++index)
                bank.setValue(slot, index, valueAt(slot, index));
        }
        bank.setCurrentSlot(17);
        links.linkValue.fill(kNoLink);
        links.channelValue = 0.25F;
    }

    static void putProgram(StoredBytes& bytes, std::int32_t slot, std::uint32_t storedSlot) {
        bytes.programHead(storedSlot, "Program " + std::to_string(slot));
        for (std::int32_t index = 0; index < kNumParams; ++index)
            bytes.value(storedSlot, static_cast<std::uint32_t>(index), valueAt(slot, index));
    }
    static StoredBytes wholeBank(StoredBytes bytes, std::uint32_t records) {
        bytes.header({.kind = 56, .records = records, .slot = 17, .recordBytes = 274400});
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
            putProgram(bytes, slot, static_cast<std::uint32_t>(slot));
        return bytes;
    }

    ProgramBank bank;
    HeldMidiLinks links;
    Journal journal;
    DiagnosticStream& diagnostics = journal.diagnostics;
};

TEST_F(StreamWriter, BankIsEveryProgramBehindItsHeaderAndAProgramIsStoredWithoutItsSlot) {
    EXPECT_TRUE(
        std::ranges::equal(writeBank(bank, diagnostics), wholeBank(StoredBytes(), 7980).view()));
    StoredBytes program = StoredBytes().header({.kind = 34, .records = 57, .recordBytes = 1960});
    putProgram(program, 99, 0);
    EXPECT_TRUE(std::ranges::equal(writeProgram(bank, 99, diagnostics), program.view()));
    EXPECT_EQ(journal.lines, Lines{});
}

TEST_F(StreamWriter, MidiSettingsStoreOneForParametersWithoutALinkAndSaySo) {
    links.linkValue.fill(0.5F);
    links.linkValue[1] = kNoLink;
    links.linkValue[2] = kNaN;
    links.linkValue[3] = -2.0F;
    links.linkValue[4] = 1.0F;
    StoredBytes expected = StoredBytes().header({.kind = 13, .records = 56, .recordBytes = 1792});
    for (std::uint32_t index = 0; index < 56; ++index)
        expected.link(index, index >= 1 && index <= 4 ? 1.0F : 0.5F, 0.25F);
    EXPECT_TRUE(std::ranges::equal(writeMidi(links, diagnostics), expected.view()));
    EXPECT_EQ(journal.lines, (Lines{"line Invalid parameter 1 value 7.748062 on save of MIDI",
                                    "line Invalid parameter NaN value nan on save of MIDI",
                                    "line Invalid parameter 3 value -2.000000 on save of MIDI"}));
}

TEST_F(StreamWriter, ChunkIsABankWithItsLinksCountedButNotMeasured) {
    links.linkValue[2] = -kNaN;
    links.linkValue[3] = -2.0F;
    links.channelValue = -0.5F;
    StoredBytes expected = wholeBank(StoredBytes().word(0x02000000).id(), 8036);
    for (std::uint32_t index = 0; index < 56; ++index)
        expected.link(index, index == 2 || index == 3 ? 1.0F : kNoLink, 1.0F);
    std::vector<std::byte> chunk(276241, std::byte{0xAA});
    writeChunk(std::span<std::byte, kChunkBytes>(chunk), bank, links, diagnostics);
    EXPECT_TRUE(std::ranges::equal(chunk, expected.view()));
    EXPECT_EQ(journal.lines, (Lines{"line Invalid parameter NaN value -nan on make of chunk",
                                    "line Invalid parameter 3 value -2.000000 on make of chunk"}));
}

TEST_F(StreamWriter, BrokenValuesAreRepairedInTheStreamAloneAndReported) {
    bank.setValue(139, 10, kNaN);
    bank.setValue(139, 11, -1e-7F);
    bank.setValue(139, 12, std::numeric_limits<float>::max());
    const StreamBytes program = writeProgram(bank, 139, diagnostics);
    EXPECT_EQ(
        journal.lines,
        (Lines{"line Invalid parameter 10 value NaN on save, preset: 139 Program 139",
               "line Invalid parameter 11 value -0.000000 on save, preset: 139 Program 139",
               "line Invalid parameter 12 value 340282346638528859811704183484516925440.000000 on "
               "save, preset: 139 Program 139"}));
    const StoredBytes repaired =
        StoredBytes().value(0, 10, 0.0F).value(0, 11, 0.0F).value(0, 12, 1.0F);
    const auto stored = std::span(program).subspan(41 + 168 + 10 * 32, 3 * 32);
    EXPECT_TRUE(std::ranges::equal(stored, repaired.view()));
    EXPECT_TRUE(std::isnan(bank.value(139, 10)));
    journal.lines.clear();
    (void)writeBank(bank, diagnostics);
    EXPECT_EQ(journal.lines.front(),
              "line Invalid parameter 10 value NaN on save of preset 139 Program 139");
}

} // namespace
} // namespace pedl
