#include "presets/StreamWriter.h"

#include "tests/presets/LineList.h"
#include "tests/support/StoredBytes.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace pedl {
namespace {

using test::LineList;
using test::StoredBytes;
using Lines = std::vector<std::string>;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kNoLink = 999.5F / 129.0F;

/// A value of its own for each place.
float valueAt(std::uint32_t slot, std::uint32_t parameter) {
    return static_cast<float>(slot * 56 + parameter) / 8192.0F;
}

std::string nameAt(std::uint32_t slot) {
    return "Program " + std::to_string(slot);
}

class StreamWriter : public testing::Test {
protected:
    StreamWriter() {
        for (std::uint32_t slot = 0; slot < 140; ++slot) {
            bank.setName(static_cast<std::int32_t>(slot), nameAt(slot));
            for (std::uint32_t parameter = 0; parameter < 56; ++parameter)
                bank.setValue(static_cast<std::int32_t>(slot), static_cast<std::int32_t>(parameter),
                              valueAt(slot, parameter));
        }
        bank.setCurrentSlot(17);
        links.linkValue.fill(kNoLink);
        links.channelValue = 0.25F;
    }

    static void putProgram(StoredBytes& bytes, std::uint32_t slot, std::uint32_t storedSlot) {
        bytes.programHead(storedSlot, nameAt(slot));
        for (std::uint32_t parameter = 0; parameter < 56; ++parameter)
            bytes.value(storedSlot, parameter, valueAt(slot, parameter));
    }

    ProgramBank bank;
    HeldMidiLinks links;
    LineList diagnostics;
};

TEST_F(StreamWriter, BankIsEveryProgramBehindItsHeader) {
    StoredBytes expected;
    expected.header({.kind = 56, .records = 7980, .slot = 17, .recordBytes = 274400});
    for (std::uint32_t slot = 0; slot < 140; ++slot)
        putProgram(expected, slot, slot);
    EXPECT_TRUE(std::ranges::equal(writeBank(bank, diagnostics), expected.view()));
    EXPECT_EQ(diagnostics.lines, Lines{});
}

TEST_F(StreamWriter, ProgramIsStoredWithoutItsSlot) {
    StoredBytes expected;
    expected.header({.kind = 34, .records = 57, .slot = 0, .recordBytes = 1960});
    putProgram(expected, 99, 0);
    EXPECT_TRUE(std::ranges::equal(writeProgram(bank, 99, diagnostics), expected.view()));
}

TEST_F(StreamWriter, MidiSettingsStoreOneForParametersWithoutALinkAndSaySo) {
    links.linkValue.fill(0.5F);
    links.linkValue[1] = kNoLink;
    links.linkValue[2] = kNaN;
    links.linkValue[3] = -2.0F;
    links.linkValue[4] = 1.0F;
    StoredBytes expected;
    expected.header({.kind = 13, .records = 56, .slot = 0, .recordBytes = 1792});
    for (std::uint32_t parameter = 0; parameter < 56; ++parameter)
        expected.link(parameter, parameter >= 1 && parameter <= 4 ? 1.0F : 0.5F, 0.25F);
    EXPECT_TRUE(std::ranges::equal(writeMidi(links, diagnostics), expected.view()));
    EXPECT_EQ(diagnostics.lines, (Lines{"Invalid parameter 1 value 7.748062 on save of MIDI",
                                        "Invalid parameter NaN value nan on save of MIDI",
                                        "Invalid parameter 3 value -2.000000 on save of MIDI"}));
}

TEST_F(StreamWriter, ChunkIsABankWithItsLinksCountedButNotMeasured) {
    links.linkValue[2] = -kNaN;
    links.linkValue[3] = -2.0F;
    links.channelValue = -0.5F;
    StoredBytes expected;
    expected.word(0x02000000).id();
    expected.header({.kind = 56, .records = 8036, .slot = 17, .recordBytes = 274400});
    for (std::uint32_t slot = 0; slot < 140; ++slot)
        putProgram(expected, slot, slot);
    for (std::uint32_t parameter = 0; parameter < 56; ++parameter)
        expected.link(parameter, parameter == 2 || parameter == 3 ? 1.0F : kNoLink, 1.0F);
    std::vector<std::byte> chunk(276241, std::byte{0xAA});
    writeChunk(std::span<std::byte, kChunkBytes>(chunk), bank, links, diagnostics);
    EXPECT_TRUE(std::ranges::equal(chunk, expected.view()));
    EXPECT_EQ(diagnostics.lines, (Lines{"Invalid parameter NaN value -nan on make of chunk",
                                        "Invalid parameter 3 value -2.000000 on make of chunk"}));
}

TEST_F(StreamWriter, BrokenValuesAreRepairedInTheStreamAloneAndReported) {
    bank.setValue(139, 10, kNaN);
    bank.setValue(139, 11, -1e-7F);
    bank.setValue(139, 12, std::numeric_limits<float>::max());
    const Lines withSlot = {
        "Invalid parameter 10 value NaN on save", "Invalid parameter 11 value -0.000000 on save",
        "Invalid parameter 12 value 340282346638528859811704183484516925440.000000 on save"};
    Lines inBank, inProgram;
    for (const std::string& line : withSlot) {
        inBank.push_back(line + " of preset 139 Program 139");
        inProgram.push_back(line + ", preset: 139 Program 139");
    }
    const StreamBytes whole = writeBank(bank, diagnostics);
    EXPECT_EQ(diagnostics.lines, inBank);
    diagnostics.lines.clear();
    StoredBytes repaired;
    repaired.value(0, 10, 0.0F).value(0, 11, 0.0F).value(0, 12, 1.0F);
    const StreamBytes program = writeProgram(bank, 139, diagnostics);
    EXPECT_EQ(diagnostics.lines, inProgram);
    const auto stored = std::span(program).subspan(41 + 168 + 10 * 32, 3 * 32);
    EXPECT_TRUE(std::ranges::equal(stored, repaired.view()));
    EXPECT_TRUE(std::isnan(bank.value(139, 10)));
}

} // namespace
} // namespace pedl
