#include "presets/StreamWriter.h"

#include "tests/presets/Journal.h"
#include "tests/support/OddNumbers.h"
#include "tests/support/StoredBytes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace pedl {
namespace {

using test::Journal;
using test::kNaN;
using test::StoredBytes;
using Lines = std::vector<std::string>;

constexpr float kNoLink = 999.5F / 129.0F;

/// A bank and links with a value of their own in each place, but for a few broken ones at the ends,
/// and the streams that they are to become, repaired.
class StreamWriter : public testing::Test {
protected:
    StreamWriter() {
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
            bank.setName(slot, "Program " + std::to_string(slot));
            for (std::int32_t index = 0; index < kNumParams; ++index)
                bank.setValue(slot, index, static_cast<float>(slot * 56 + index) / 8192.0F);
        }
        expectedBank = bank.record(139).normalised;
        bank.setValue(139, 53, kNaN);
        bank.setValue(139, 54, -1e-7F);
        bank.setValue(139, 55, 2e8F);
        expectedBank[53] = expectedBank[54] = 0.0F;
        expectedBank[55] = 1.0F;
        bank.setCurrentSlot(17);
        links.linkValue.fill(0.5F);
        links.linkValue[1] = kNoLink;
        links.linkValue[2] = -kNaN;
        links.linkValue[3] = -2.0F;
        links.channelValue = -0.5F;
    }

    void putProgram(StoredBytes& bytes, std::int32_t slot, std::uint32_t storedSlot) const {
        bytes.programHead(storedSlot, "Program " + std::to_string(slot));
        for (std::uint32_t index = 0; index < 56; ++index)
            bytes.value(storedSlot, index,
                        slot == 139 ? expectedBank[index]
                                    : bank.value(slot, static_cast<std::int32_t>(index)));
    }
    StoredBytes wholeBank(StoredBytes bytes, std::uint32_t records) const {
        bytes.header({.records = records, .slot = 17, .recordBytes = 274400});
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
            putProgram(bytes, slot, static_cast<std::uint32_t>(slot));
        return bytes;
    }

    ProgramBank bank;
    std::array<float, kNumParams> expectedBank{};
    HeldMidiLinks links;
    Journal journal;
    DiagnosticStream& diagnostics = journal.diagnostics;
};

TEST_F(StreamWriter, BankAndProgramAreWrittenToTheByteAndRepairsAreTold) {
    EXPECT_TRUE(
        std::ranges::equal(writeBank(bank, diagnostics), wholeBank(StoredBytes(), 7980).view()));
    StoredBytes program = StoredBytes().header({.kind = 34, .records = 57, .recordBytes = 1960});
    putProgram(program, 139, 0);
    EXPECT_TRUE(std::ranges::equal(writeProgram(bank, 139, diagnostics), program.view()));
    Lines lines;
    for (const std::string place : {" on save of preset 139 ", " on save, preset: 139 "})
        for (const std::string value :
             {"53 value NaN", "54 value -0.000000", "55 value 200000000.000000"})
            lines.push_back("line Invalid parameter " + value + place + "Program 139");
    EXPECT_EQ(journal.lines, lines);
    EXPECT_TRUE(std::isnan(bank.value(139, 53))) << "repaired in the stream alone";
}

TEST_F(StreamWriter, ChunkIsABankWithItsLinksCountedButNotMeasuredAndNoLinkOneInMidiSettings) {
    StoredBytes midi = StoredBytes().header({.kind = 13, .records = 56, .recordBytes = 1792});
    StoredBytes expected = wholeBank(StoredBytes().word(0x02000000).id(), 8036);
    for (std::uint32_t index = 0; index < 56; ++index) {
        const float repaired = index == 2 || index == 3 ? 1.0F : links.linkValue[index];
        expected.link(index, repaired, 1.0F);
        midi.link(index, std::min(repaired, 1.0F), 1.0F);
    }
    std::vector<std::byte> chunk(276241, std::byte{0xAA});
    writeChunk(std::span<std::byte, kChunkBytes>(chunk), bank, links, diagnostics);
    EXPECT_TRUE(std::ranges::equal(chunk, expected.view()));
    journal.lines.erase(journal.lines.begin(), journal.lines.begin() + 3); // of the bank
    EXPECT_TRUE(std::ranges::equal(writeMidi(links, diagnostics), midi.view()));
    EXPECT_EQ(journal.lines, (Lines{"line Invalid parameter NaN value -nan on make of chunk",
                                    "line Invalid parameter 3 value -2.000000 on make of chunk",
                                    "line Invalid parameter 1 value 7.748062 on save of MIDI",
                                    "line Invalid parameter NaN value -nan on save of MIDI",
                                    "line Invalid parameter 3 value -2.000000 on save of MIDI"}));
}

} // namespace
} // namespace pedl
