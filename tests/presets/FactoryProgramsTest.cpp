#include "presets/FactoryPrograms.h"

#include "presets/ProgramBank.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace pedl {
namespace {

using Differences = std::map<int, float>;

/// What a program has other than "Default".
Differences differencesOf(std::int32_t slot) {
    Differences differences;
    for (std::size_t i = 0; i < kNumParams; ++i)
        if (factoryProgram(slot).normalised[i] != factoryProgram(0).normalised[i])
            differences[static_cast<int>(i)] = factoryProgram(slot).normalised[i];
    return differences;
}

// clang-format off
TEST(FactoryPrograms, HaveTheirPublishedValues) {
    const std::array<float, kNumParams> byDefault{
        0, 0.5F, 0, 0, 0, 0.5F, 0.5F, 0, 0.066044F, 0.290323F, 0.179487F, 0, 0, 0.5F, 0, 0.5F, 0,
        0.5F, 0, 1, 0.300797F, 0.566642F, 0, 1, 0, 0.5F, 0, 0.5F, 0.67191F, 0.5F, 0.667329F,
        0.504156F, 0, 0, 0, 0.5F, 1, 0.849953F, 0, 0.5F, 0, 0, 1, 0.5F, 1, 0.5F, 0, 0.5F, 0.5F, 1,
        0.5F, 0.5F, 0, 0, 0, 0};
    EXPECT_EQ(factoryProgram(0).normalised, byDefault);
    EXPECT_EQ(differencesOf(1), (Differences{
        {14, 1.0F}, {16, 1.0F}, {20, 0.5F}, {21, 0.233267F}, {27, 0.372563F}, {28, 0.304438F},
        {30, 0.5F}, {31, 0.797359F}, {37, 1.0F}, {42, 0.0F}, {48, 0.0F}}));
    EXPECT_EQ(differencesOf(2), (Differences{
        {20, 0.703031F}, {21, 0.386101F}, {28, 0.864141F}, {30, 0.673141F}, {31, 0.85225F},
        {37, 0.999953F}}));
    EXPECT_EQ(differencesOf(119), (Differences{
        {14, 1.0F}, {16, 1.0F}, {18, 1.0F}, {20, 0.5F}, {21, 0.547818F}, {25, 0.0F}, {28, 0.5F},
        {30, 0.5F}, {31, 0.5F}, {33, 0.5F}, {36, 0.0F}, {37, 0.5F}, {43, 0.7F}, {44, 0.0F}}));
    for (std::int32_t slot = 120; slot < kNumPrograms; ++slot)
        EXPECT_EQ(differencesOf(slot), (Differences{{27, 0.374469F}}));
}
// clang-format on

TEST(FactoryPrograms, HaveNamesOfTheirOwnValuesInRangeAndATempoWhereTheNameSaysSo) {
    ProgramBank bank;
    writeFactoryPrograms(bank);
    std::set<std::string_view> names;
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
        const std::string_view name = factoryProgramName(slot);
        SCOPED_TRACE(name);
        names.insert(name);
        EXPECT_EQ(nameText(bank.name(slot)), name) << "uncut";
        for (std::int32_t index = 0; index < kNumParams; ++index)
            EXPECT_TRUE(bank.value(slot, index) >= 0.0F && bank.value(slot, index) <= 1.0F);
        EXPECT_EQ(bank.value(slot, kLFOSyncMode) >= 0.25F,
                  name.ends_with("nc]") || slot == 90 || slot == 92);
    }
    for (const auto& [slot, name] : std::map<int, std::string>{
             {0, "Default"}, {57, "Drunk Morse Code"}, {105, "Jew's harp [snc]"}, {120, "Init"}})
        EXPECT_EQ(factoryProgramName(slot), name);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        bank.setValue(slot, kParam3, 0.5F);
    writeFactoryPrograms(bank);
    std::set<std::int32_t> left;
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        if (bank.value(slot, kParam3) == 0.5F)
            left.insert(slot);
    EXPECT_EQ(left, (std::set<std::int32_t>{7,  8,  23, 24, 28,  30,  39,  40,  44,  56,  57,
                                            58, 60, 61, 62, 100, 101, 107, 108, 109, 115, 116}));
    EXPECT_EQ(names.size(), 121U) << "120 names, then Init in every slot";
}

} // namespace
} // namespace pedl
