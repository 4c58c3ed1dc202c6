#include "parameters/ParameterCatalogue.h"

#include <climits>
#include <gtest/gtest.h>
#include <set>
#include <string_view>
#include <utility>

namespace pedl {
namespace {

TEST(ParameterCatalogue, ShortNamesFitSevenCharactersAndAreUnique) {
    std::set<std::string_view> seen;
    for (const ParameterRow& row : kParameterRows) {
        EXPECT_LE(row.shortName.size(), 7U) << row.shortName;
        if (!row.shortName.empty()) {
            EXPECT_TRUE(seen.insert(row.shortName).second) << row.shortName << " stands twice";
        }
    }
    EXPECT_EQ(seen.size(), 49U);
}

TEST(ParameterCatalogue, HidesAndAutomatesNothingOfHiddenParametersAndTags) {
    const std::set<std::int32_t> hidden{22, 23, 24, 40, 48, 51, 54};
    for (std::int32_t index = -3; index < 170; ++index) {
        const bool isTag = index >= 112 && index <= 135;
        EXPECT_EQ(isAutomatable(index), !hidden.contains(index) && !isTag) << index;
        if (index >= 0 && index < kNumParams) {
            EXPECT_EQ(shortParameterName(index).empty(), hidden.contains(index)) << index;
        }
    }
}

TEST(ParameterCatalogue, NamesTheDisplayModeAloneAmongOtherIndices) {
    EXPECT_EQ(shortParameterName(124), "DispMod");
    EXPECT_EQ(longParameterName(124), "DisplayMode");
    for (const std::int32_t index : {INT_MIN, -1, 56, 112, 121, 123, 125, 135, 149, INT_MAX})
        EXPECT_EQ(shortParameterName(index).size() + longParameterName(index).size(), 0U) << index;
    for (const std::int32_t index : {INT_MIN, -1, 56, 111, 112, 123, 136, 149, INT_MAX}) {
        EXPECT_EQ(findParameterRow(index), nullptr);
        EXPECT_EQ(parameterText(index, 0.5F).view(), "");
    }
}

TEST(ParameterCatalogue, DefaultProgramReadsAsMusiciansExpectIt) {
    using Row = std::pair<std::int32_t, const char*>;
    for (const auto& [index, text] :
         {Row{kPower, "process"}, Row{kGain, "0.0"}, Row{kLFOType, "sin"}, Row{kLFOFreq, "1.00"},
          Row{kLFOSynchroRate, "1:2 "}, Row{kTempoSetup, "120.0"}, Row{kFilterType, "LPF"},
          Row{kFilterPole, "24 dB"}, Row{kFilterCutoffFreq, "1002"}, Row{kEnvThreshold, "-24.0"},
          Row{kEnvAttack, "300"}, Row{kEnvAttackExtension, "x1.0"}, Row{kEnvRelease, "700"},
          Row{kFilterFreqByENV, "70"}, Row{kLFOWidth, "50:50"}, Row{kLFOSpread, "0"},
          Row{kWet, "0.0"}, Row{kModulationOnOff, "Mod on"}})
        EXPECT_EQ(parameterText(index, findParameterRow(index)->defaultValue).view(), text);
}

} // namespace
} // namespace pedl
