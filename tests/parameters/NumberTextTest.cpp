#include "parameters/NumberText.h"

#include "parameters/DisplayRequest.h"
#include "parameters/NoteDivision.h"

#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace pedl {
namespace {

TEST(NumberText, RoundsHalfUpAndHoldsAtMostEightCharacters) {
    struct Row {
        float value;
        int decimals;
        const char* expected;
    };
    // clang-format off
    for (const Row row : {
        Row{0.0F, 0, "0"},      Row{0.49F, 0, "0"},     Row{0.5F, 0, "1"},      Row{2.5F, 0, "3"},
        Row{99.5F, 0, "100"},   Row{120.0F, 1, "120.0"}, Row{119.96F, 1, "120.0"},
        Row{0.999F, 2, "1.00"}, Row{0.05F, 2, "0.05"},  Row{14.994F, 2, "14.99"},
        Row{14.996F, 2, "15.00"}, Row{-23.96F, 1, "-24.0"}, Row{-1.5F, 0, "-2"},
        Row{-0.51F, 0, "-1"},
        // As floats these lie a shade below what they stand for.
        Row{0.005F, 2, "0.01"}, Row{0.29F, 2, "0.29"},  Row{0.7F, 1, "0.7"},    Row{-0.7F, 1, "-0.7"},
        // The sign stays where nothing is rounded to -1.
        Row{-0.3F, 0, "-0"},    Row{-0.01F, 1, "-0.0"}, Row{-0.0F, 1, "0.0"},
        // At most eight characters
        Row{123456.5F, 3, "123456.5"}, Row{-9999999.0F, 0, "-9999999"}, Row{-1e7F, 0, ""},
        Row{2e8F, 0, ""}, Row{HUGE_VALF, 1, ""}, Row{std::nanf(""), 1, ""},
    }) {
        // clang-format on
        SCOPED_TRACE(testing::Message() << row.value << " with " << row.decimals << " decimals");
        EXPECT_EQ(numberText(row.value, row.decimals).view(), row.expected);
    }
}

TEST(NoteDivision, ReadsDottedForThreePartsAndKeepsItsTrailingBlank) {
    EXPECT_EQ(noteDivisionText({1, 2}).view(), "1:2 ");
    EXPECT_EQ(noteDivisionText({3, 8}).view(), "1:4 .");
    EXPECT_EQ(noteDivisionText({3, 1}).view(), "1:0 .") << "three whole notes, dotted nothing";
    EXPECT_EQ(noteDivisionIndex(0.290323F), 9U); // 0.290323 x 31 = 9.00001
    EXPECT_EQ(noteDivisionIndex(0.9999F), 30U);
    EXPECT_EQ(noteDivisionIndex(1.0F), 31U);
}

TEST(DisplayRequest, NeedsAllFourBytesOfTheMarkerAndReadsNoFurtherThanItMatches) {
    std::array<char, 8> buffer{'1', 'E', 'A', 'D'};
    const float wanted = 0.25F;
    std::memcpy(&buffer[4], &wanted, sizeof wanted);
    EXPECT_EQ(requestedDisplayValue(buffer.data()), wanted);
    buffer[3] = 'd';
    EXPECT_EQ(requestedDisplayValue(buffer.data()), std::nullopt);
    // Blocks of just these lengths: the sanitizer watches their ends.
    for (const std::vector<char>& block : {std::vector<char>{'\0'}, std::vector<char>{'1', '\0'}})
        EXPECT_EQ(requestedDisplayValue(block.data()), std::nullopt);
}

} // namespace
} // namespace pedl
