#include "presets/MidiMap.h"

#include "tests/support/OddNumbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace pedl {
namespace {

using test::kInfinity;
using test::kNaN;

constexpr std::int32_t kNone = MidiMap::kNone;
constexpr float kNoneValue = 999.5F / 129.0F;

/// The value that selects a controller, or none with 128.
float valueOf(int controller) {
    return (static_cast<float>(controller) + 0.5F) / 129.0F;
}

void expectLinked(const MidiMap& map, std::int32_t parameter, std::int32_t controller) {
    EXPECT_EQ(map.controllerOf(parameter), controller) << "parameter " << parameter;
    EXPECT_EQ(map.parameterOf(controller), parameter) << "controller " << controller;
    EXPECT_EQ(map.drivenBy(controller), parameter) << "controller " << controller;
    EXPECT_EQ(map.linkValue(parameter), valueOf(controller));
}

TEST(MidiMap, EveryHundredTwentyNinthOfTheRangeIsAController) {
    struct Row {
        float normalised;
        std::int32_t controller;
        float kept;
    };
    for (const Row row : {Row{0.0F, 0, 0.0F}, Row{0.007F, 0, 0.007F}, Row{0.008F, 1, 0.008F},
                          Row{valueOf(127), 127, valueOf(127)}, Row{0.99224F, 127, 0.99224F},
                          Row{0.99226F, kNone, 0.99226F}, Row{1.0F, kNone, 1.0F},
                          Row{kNoneValue, kNone, kNoneValue}, Row{kInfinity, kNone, kInfinity},
                          Row{-0.5F, 0, 0.0F}, Row{-0.0F, 0, -0.0F}, Row{kNaN, 0, 0.0F}}) {
        SCOPED_TRACE(row.normalised);
        MidiMap map;
        map.setLinkValue(12, row.normalised);
        EXPECT_EQ(map.controllerOf(12), row.controller);
        EXPECT_EQ(map.linkValue(12), row.kept);
        EXPECT_EQ(std::signbit(map.linkValue(12)), std::signbit(row.kept));
        EXPECT_EQ(map.drivenBy(row.controller), row.controller == kNone ? kNone : 12);
    }
}

TEST(MidiMap, LearningAndForgettingAtRandomNeverPartsTheEndsOfALink) {
    std::mt19937 random(1);
    MidiMap map;
    for (int step = 0; step < 2000; ++step) {
        const auto parameter = static_cast<std::int32_t>(random() % 56);
        const auto controller = static_cast<std::int32_t>(random() % 128);
        if (step % 4 == 0)
            map.forgetParameter(parameter);
        else if (step % 4 == 1)
            map.forgetController(controller);
        else
            map.relink(parameter, controller);
        EXPECT_EQ(map.controllerOf(parameter) == controller, step % 4 > 1);
        EXPECT_EQ(map.drivenBy(controller) == parameter, step % 4 > 1);
    }
    int links = 0;
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        if (const std::int32_t controller = map.controllerOf(parameter); controller != kNone) {
            expectLinked(map, parameter, controller);
            ++links;
        }
    for (std::int32_t controller = 0; controller < 128; ++controller)
        links -= map.drivenBy(controller) != kNone ? 1 : 0;
    EXPECT_EQ(links, 0) << "a controller without a parameter of its own";
    for (const std::int32_t number : {-1, 128, 999}) { // none of them exists
        map.relink(number, 0);
        map.relink(0, number);
        map.setLinkValue(number, valueOf(0));
        EXPECT_EQ(map.controllerOf(number) + map.drivenBy(number), 2 * kNone);
    }
}

TEST(MidiMap, EndsThatPartedStayUntilRebuiltOrRelinked) {
    for (const bool isRebuilt : {true, false}) {
        MidiMap map;
        map.link(1, 9);
        map.link(1, 7); // leaves 9, as the next ones leave 7
        for (const std::int32_t parameter : {55, 3, 20})
            map.setLinkValue(parameter, valueOf(7));
        map.setLinkValue(4, valueOf(0));
        map.setLinkValue(4, 1.0F);
        EXPECT_EQ(map.drivenBy(9), 1);
        EXPECT_EQ(map.drivenBy(7), 20) << "the one set last";
        EXPECT_EQ(map.drivenBy(0), 4);
        EXPECT_EQ(map.parameterOf(0), kNone);
        isRebuilt ? map.rebuild() : map.relink(1, 7);
        expectLinked(map, 1, 7); // the first of all that have it
        EXPECT_EQ(map.drivenBy(9), kNone);
        EXPECT_EQ(map.drivenBy(0) == kNone, isRebuilt);
        for (const std::int32_t parameter : {3, 20, 55})
            EXPECT_EQ(map.linkValue(parameter), kNoneValue);
        EXPECT_EQ(map.linkValue(4), 1.0F);
    }
}

} // namespace
} // namespace pedl
