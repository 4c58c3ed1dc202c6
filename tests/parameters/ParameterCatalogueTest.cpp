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

TEST(ParameterCatalogue, StepsAreThoseOfTheControls) {
    using enum TextRule;
    const std::set<TextRule> ofSwitches{Process,       OnOff,       RandomType,
                                        Slope,         LevelSource, Modulation,
                                        ThresholdMode, NoteScale,   ShownQuantity};
    for (std::int32_t index = 0; index < kNumParams; ++index)
        if (const TextRule text = findParameterRow(index)->text; text != Empty) {
            EXPECT_EQ(parameterSteps(index)->isSwitch, ofSwitches.contains(text)) << index;
        }
    struct Row {
        std::int32_t index;
        float step, largeStep;
    };
    for (const Row row : {Row{kPower, 0.5F, 0.5F}, Row{kFreezMode, 1.0F / 3.0F, 1.0F / 3.0F},
                          Row{kWet, 1.0F / 72.0F, 1.0F / 36.0F}, Row{kLFOType, 0.125F, 0.125F},
                          Row{kTempoSetup, 0.0025F, 0.0125F}, Row{kFilterFreqMin, 0.00005F, 0.002F},
                          Row{kLFOSynchroRate, 1.0F / 32.0F, 1.0F / 32.0F}}) {
        EXPECT_EQ(parameterSteps(row.index)->step, row.step) << row.index;
        EXPECT_EQ(parameterSteps(row.index)->largeStep, row.largeStep) << row.index;
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
    for (const float nothing : {-1.0F, std::nanf("")})
        EXPECT_EQ(parameterText(kFilterCutoffFreq, nothing).view(), "20");
}

} // namespace
} // namespace pedl
