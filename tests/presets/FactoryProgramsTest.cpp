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
    const ProgramRecord base = factoryProgram(0);
    const ProgramRecord program = factoryProgram(slot);
    Differences differences;
    for (std::size_t i = 0; i < kNumParams; ++i)
        if (program.normalised[i] != base.normalised[i])
            differences[static_cast<int>(i)] = program.normalised[i];
    return differences;
}

TEST(FactoryPrograms, DefaultHasItsPublishedValues) {
    // clang-format off
    const std::array<float, kNumParams> expected{
        0, 0.5F, 0, 0, 0, 0.5F, 0.5F, 0, 0.066044F, 0.290323F, 0.179487F, 0, 0, 0.5F, 0, 0.5F, 0,
        0.5F, 0, 1, 0.300797F, 0.566642F, 0, 1, 0, 0.5F, 0, 0.5F, 0.67191F, 0.5F, 0.667329F,
        0.504156F, 0, 0, 0, 0.5F, 1, 0.849953F, 0, 0.5F, 0, 0, 1, 0.5F, 1, 0.5F, 0, 0.5F, 0.5F, 1,
        0.5F, 0.5F, 0, 0, 0, 0};
    // clang-format on
    EXPECT_EQ(factoryProgram(0).normalised, expected);
}

TEST(FactoryPrograms, DesignedProgramsDifferFromDefaultAsPublished) {
    const Differences manualFilter{{14, 1.0F}, {16, 1.0F}, {20, 0.5F}, {21, 0.547818F}, {25, 0.0F},
                                   {28, 0.5F}, {30, 0.5F}, {31, 0.5F}, {33, 0.5F},      {36, 0.0F},
                                   {37, 0.5F}, {43, 0.7F}, {44, 0.0F}};
    Differences highPass = manualFilter;
    highPass[18] = 1.0F;
    // clang-format off
    EXPECT_EQ(differencesOf(1), (Differences{
        {14, 1.0F}, {16, 1.0F}, {20, 0.5F}, {21, 0.233267F}, {27, 0.372563F}, {28, 0.304438F},
        {30, 0.5F}, {31, 0.797359F}, {37, 1.0F}, {42, 0.0F}, {48, 0.0F}}));
    EXPECT_EQ(differencesOf(2), (Differences{
        {20, 0.703031F}, {21, 0.386101F}, {28, 0.864141F}, {30, 0.673141F}, {31, 0.85225F},
        {37, 0.999953F}}));
    // clang-format on
    EXPECT_EQ(differencesOf(117), manualFilter);
    EXPECT_EQ(differencesOf(119), highPass);
    for (std::int32_t slot = 120; slot < kNumPrograms; ++slot)
        EXPECT_EQ(differencesOf(slot), (Differences{{27, 0.374469F}}));
}

TEST(FactoryPrograms, NamesStandInTheirSlots) {
    // clang-format off
    const std::map<int, std::string> some{
        {0, "Default"}, {1, "Auto Wah"}, {3, "ReverseEnvelopeFilter"}, {28, "Duck Choir [snc]"},
        {57, "Drunk Morse Code"}, {85, "Chopper in the Distance"}, {87, "Mutronn 1 [sync]"},
        {90, "Pan LFO"}, {105, "Jew's harp [snc]"}, {118, "Manual MPF 24dB/oct"},
        {119, "Manual HPF 24dB/oct"}, {120, "Init"}, {139, "Init"}};
    // clang-format on
    for (const auto& [slot, name] : some)
        EXPECT_EQ(factoryProgramName(slot), name);
}

TEST(FactoryPrograms, SynchronisedProgramsFollowATempo) {
    int synchronised = 0;
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
        const bool saysSo = factoryProgramName(slot).ends_with("nc]");
        const bool isSynchronised = factoryProgram(slot).normalised[kLFOSyncMode] >= 0.25F;
        EXPECT_EQ(isSynchronised, saysSo || slot == 90 || slot == 92) << factoryProgramName(slot);
        synchronised += isSynchronised ? 1 : 0;
    }
    EXPECT_GT(synchronised, 40);
}

TEST(FactoryPrograms, EveryNameIsItsOwnAndEveryValueCanBeApplied) {
    ProgramBank bank;
    writeFactoryPrograms(bank);
    std::set<std::string_view> names;
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
        names.insert(factoryProgramName(slot));
        EXPECT_EQ(nameText(bank.name(slot)), factoryProgramName(slot)); // uncut
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
            EXPECT_GE(bank.value(slot, parameter), 0.0F);
            EXPECT_LE(bank.value(slot, parameter), 1.0F);
        }
    }
    EXPECT_EQ(names.size(), 121U) << "120 names, then Init in every slot";
    EXPECT_FALSE(names.contains(""));
}

} // namespace
} // namespace pedl
