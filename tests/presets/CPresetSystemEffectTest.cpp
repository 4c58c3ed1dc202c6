#include "presets/CPresetSystemEffect.h"

#include "presets/FactoryPrograms.h"
#include "tests/presets/Journal.h"
#include "tests/presets/PlainEffect.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace pedl {
namespace {

using test::Journal;
using test::PlainEffect;
using Lines = std::vector<std::string>;

class PresetSystem : public testing::Test {
protected:
    Journal journal;
    PlainEffect effect{journal};
};

TEST_F(PresetSystem, SelectingAppliesUsableValuesThenWaitsThenTellsTheHost) {
    effect.editableBank().setValue(1, kGain, 1.5F);
    effect.editableBank().setValue(1, kFreez, -0.1F);
    effect.editableBank().setValue(1, kLFOType, std::nanf(""));
    journal.lines.clear();
    effect.selectProgram(1);
    ASSERT_EQ(journal.lines.size(), 60U - 3U);
    EXPECT_EQ(journal.lines[0], "set 0 0");
    EXPECT_EQ(journal.lines[18], "set 21 0.233267");
    EXPECT_EQ(std::vector(journal.lines.end() - 5, journal.lines.end()),
              (Lines{"set 55 0", "wait 100", "update display", "begin 0", "end 0"}));
    EXPECT_EQ(effect.currentSlot(), 1);
    EXPECT_EQ(effect.bank().value(1, kGain), 1.5F) << "what is not applied stays in the slot";
}

TEST_F(PresetSystem, HostAndViewRenameTheCurrentProgramAndTellEachOther) {
    effect.setView(&journal.view);
    effect.selectProgram(4);
    char name[] = "Chopper in the Distance!";
    effect.setProgramName(name);
    effect.setProgramName(nullptr);
    EXPECT_EQ(effect.nameOf(4), "Chopper in the Distance");
    EXPECT_EQ(journal.count("view name Chopper in the Distance"), 1);
    journal.lines.clear();
    effect.renameCurrentProgram("Mine");
    effect.renameCurrentProgram(nullptr);
    EXPECT_EQ(effect.nameOf(4), "Mine");
    EXPECT_EQ(journal.count("update display"), 2);
}

TEST_F(PresetSystem, NamesFitIntoTwentyFourBytesAndThereAreNoneBesideTheBank) {
    char buffer[kProgramNameBytes + 2];
    std::memset(buffer, '#', sizeof buffer);
    ASSERT_TRUE(effect.getProgramNameIndexed(0, 85, buffer));
    for (const VstInt32 index : {-1, 140, -1000000, 1000000})
        EXPECT_FALSE(effect.getProgramNameIndexed(0, index, buffer));
    EXPECT_STREQ(buffer, "Chopper in the Distance");
    EXPECT_EQ(buffer[kProgramNameBytes], '#');
    effect.getProgramName(buffer);
    EXPECT_EQ(std::string(buffer, 10), std::string("Default\0in", 10)) << "no padding";
}

} // namespace
} // namespace pedl
