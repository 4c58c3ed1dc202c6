#include "parameters/ParameterCatalogue.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>

namespace pedl {
namespace {

constexpr std::int32_t kUnknownIndices[] = {-1,
                                            56,
                                            111,
                                            112,
                                            123,
                                            136,
                                            137,
                                            149,
                                            std::numeric_limits<std::int32_t>::min(),
                                            std::numeric_limits<std::int32_t>::max()};

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

TEST(ParameterCatalogue, HidesWhatHostsMayNotAutomate) {
    for (std::int32_t index = 0; index < kNumParams; ++index)
        EXPECT_EQ(shortParameterName(index).empty(), !isAutomatable(index)) << index;
}

TEST(ParameterCatalogue, AllowsAutomationOfAllButHiddenParametersAndTags) {
    std::set<std::int32_t> refused;
    for (std::int32_t index = -3; index < 170; ++index)
        if (!isAutomatable(index))
            refused.insert(index);
    std::set<std::int32_t> expected{22, 23, 24, 40, 48, 51, 54};
    for (std::int32_t tag = 112; tag <= 135; ++tag)
        expected.insert(tag);
    EXPECT_EQ(refused, expected);
}

TEST(ParameterCatalogue, NamesTheDisplayModeAloneAmongTheTags) {
    EXPECT_EQ(shortParameterName(124), "DispMod");
    EXPECT_EQ(longParameterName(124), "DisplayMode");
    for (const std::int32_t index : {121, 122, 125, 126, 127, 128, 131, 133, 134, 135}) {
        EXPECT_EQ(shortParameterName(index), "") << index;
        EXPECT_EQ(longParameterName(index), "") << index;
    }
}

TEST(ParameterCatalogue, KnowsNothingOfOtherIndices) {
    for (const std::int32_t index : kUnknownIndices) {
        SCOPED_TRACE(index);
        EXPECT_EQ(findParameterRow(index), nullptr);
        EXPECT_EQ(shortParameterName(index), "");
        EXPECT_EQ(parameterText(index, 0.5F).view(), "");
        EXPECT_FALSE(parameterSteps(index));
    }
}

TEST(ParameterCatalogue, GivesEveryClassItsSteps) {
    struct Row {
        std::set<std::int32_t> indices;
        float step, smallStep, largeStep;
        bool isSwitch;
    };
    const Row rows[] = {
        {{0, 3, 11, 14, 16, 19, 26, 32, 34, 36, 38, 42, 44, 46, 49, 52, 53, 55, 124},
         0.5F,
         0.5F,
         0.5F,
         true},
        {{1,  5,  6,  12, 13, 15, 17, 18, 20, 25, 27, 28, 29,  30,
          31, 33, 35, 37, 39, 40, 43, 45, 47, 48, 50, 51, 127, 128},
         1.0F / 72.0F,
         1.0F / 360.0F,
         1.0F / 36.0F,
         false},
        {{2, 7, 41}, 1.0F / 3.0F, 1.0F / 6.0F, 1.0F / 3.0F, false},
        {{4}, 0.125F, 0.0625F, 0.125F, false},
        {{8, 10}, 0.0025F, 0.00125F, 0.0125F, false},
        {{9}, 1.0F / 32.0F, 1.0F / 64.0F, 1.0F / 32.0F, false},
        {{21, 22, 23}, 0.00005F, 0.000025F, 0.002F, false},
        {{24, 54, 134, 135}, 1.0F / 72.0F, 0.004F, 0.02F, false},
    };
    std::set<std::int32_t> withClass;
    for (const Row& row : rows) {
        for (const std::int32_t index : row.indices) {
            SCOPED_TRACE(index);
            const auto steps = parameterSteps(index);
            ASSERT_TRUE(steps);
            EXPECT_EQ(steps->step, row.step);
            EXPECT_EQ(steps->smallStep, row.smallStep);
            EXPECT_EQ(steps->largeStep, row.largeStep);
            EXPECT_EQ(steps->isSwitch, row.isSwitch);
            withClass.insert(index);
        }
    }
    for (std::int32_t index = -1; index < 170; ++index)
        EXPECT_EQ(parameterSteps(index).has_value(), withClass.contains(index)) << index;
}

TEST(ParameterCatalogue, DefaultProgramReadsAsMusiciansExpectIt) {
    struct Row {
        std::int32_t index;
        const char* text;
    };
    for (const Row row :
         {Row{kPower, "process"}, Row{kGain, "0.0"}, Row{kLFOType, "sin"}, Row{kLFOFreq, "1.00"},
          Row{kLFOSynchroRate, "1:2 "}, Row{kTempoSetup, "120.0"}, Row{kFilterType, "LPF"},
          Row{kFilterPole, "24 dB"}, Row{kFilterCutoffFreq, "1002"}, Row{kEnvThreshold, "-24.0"},
          Row{kEnvAttack, "300"}, Row{kEnvAttackExtension, "x1.0"}, Row{kEnvRelease, "700"},
          Row{kFilterFreqByENV, "70"}, Row{kLFOWidth, "50:50"}, Row{kLFOSpread, "0"},
          Row{kWet, "0.0"}, Row{kModulationOnOff, "Mod on"}}) {
        const ParameterRow* const row_ = findParameterRow(row.index);
        EXPECT_EQ(parameterText(row.index, row_->defaultValue).view(), row.text) << row.index;
    }
}

TEST(ParameterCatalogue, TakesValuesBesideTheRangeAsItsBounds) {
    EXPECT_EQ(parameterText(kFilterCutoffFreq, -3.0F).view(), "20");
    EXPECT_EQ(parameterText(kFilterCutoffFreq, 1.7F).view(), "20000");
    EXPECT_EQ(parameterText(kLFOType, std::numeric_limits<float>::infinity()).view(), "rnd");
    EXPECT_EQ(parameterText(kGain, std::numeric_limits<float>::quiet_NaN()).view(), "-24.0");
}

} // namespace
} // namespace pedl
