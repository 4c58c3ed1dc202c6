#include "presets/ProgramBank.h"

#include <gtest/gtest.h>
#include <string>

namespace pedl {
namespace {

TEST(ProgramName, IsCutAtTwentyThreeCharactersAndPaddedWithZeros) {
    struct Row {
        std::string text, stored;
    };
    for (const Row& row :
         {Row{"", ""}, Row{"Cat", "Cat"}, Row{"Chopper in the Distance", "Chopper in the Distance"},
          Row{"Chopper in the Distance!", "Chopper in the Distance"},
          Row{std::string(100, 'x'), std::string(23, 'x')}}) {
        const ProgramName name = toProgramName(row.text);
        EXPECT_EQ(std::string(name.begin(), name.end()),
                  row.stored + std::string(kProgramNameBytes - row.stored.size(), '\0'));
        EXPECT_EQ(nameText(name), row.stored);
    }
}

TEST(ProgramBank, StartsWithZerosInTheFirstSlot) {
    const ProgramBank bank;
    EXPECT_EQ(bank.currentSlot(), 0);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
        EXPECT_EQ(bank.record(slot).name, ProgramName{});
        EXPECT_EQ(bank.record(slot).normalised, decltype(ProgramRecord::normalised){});
    }
}

TEST(ProgramBank, AShorterNameLeavesNothingOfALongerOne) {
    ProgramBank bank;
    bank.setName(7, "Underwater Beats");
    bank.setName(7, "Cat");
    EXPECT_EQ(bank.name(7), toProgramName("Cat"));
}

TEST(ProgramBank, EditSnapshotKeepsWhatTheSlotWas) {
    ProgramBank bank;
    bank.setName(0, "Before");
    bank.setValue(0, kGain, 0.25F);
    bank.takeEditSnapshot(0);
    bank.setName(0, "After");
    bank.setValue(0, kGain, 0.75F);
    bank.storeEditSnapshot(139);
    EXPECT_EQ(nameText(bank.name(139)), "Before");
    EXPECT_EQ(bank.value(139, kGain), 0.25F);
    EXPECT_EQ(bank.value(0, kGain), 0.75F);
}

TEST(ProgramBank, SharesAValueAmongAllSlots) {
    ProgramBank bank;
    bank.setValue(5, kDryGlobal, 0.1F);
    bank.setValueInEverySlot(kDryGlobal, 0.75F);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
        EXPECT_EQ(bank.value(slot, kDryGlobal), 0.75F);
        EXPECT_EQ(bank.value(slot, kDry), 0.0F);
    }
}

} // namespace
} // namespace pedl
