#include "parameters/ParameterCatalogue.h"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string_view>
#include <utility>

namespace pedl {
namespace {

TEST(ParameterCatalogue, HidesAndAutomatesNothingOfHiddenParametersAndTags) {
    const std::set<std::int32_t> hidden{22, 23, 24, 40, 48, 51, 54};
    std::set<std::string_view> names;
    for (std::int32_t index = -3; index < 170; ++index) {
        const bool isTag = index >= 112 && index <= 135;
        const bool isNamed = (isParameter(index) && !hidden.contains(index)) || index == 124;
        EXPECT_EQ(isAutomatable(index), !hidden.contains(index) && !isTag) << index;
        EXPECT_EQ(!shortParameterName(index).empty(), isNamed) << index;
        EXPECT_EQ(!longParameterName(index).empty(), isNamed) << index;
        EXPECT_LE(shortParameterName(index).size(), 7U) << index;
        names.insert(shortParameterName(index));
    }
    EXPECT_EQ(names.size(), 51U) << "49 parameters, the display mode and no name; none twice";
    for (const std::int32_t index : {INT_MIN, -1, 56, 111, 112, 123, 136, 149, INT_MAX})
        EXPECT_EQ(findParameterRow(index), nullptr);
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
    for (const float nothing : {-1.0F, std::nanf("")})
        EXPECT_EQ(parameterText(kFilterCutoffFreq, nothing).view(), "20");
}

} // namespace
} // namespace pedl
