#include "presets/MidiMap.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace pedl {
namespace {

constexpr std::int32_t kNone = MidiMap::kNone;
constexpr float kNoneValue = 999.5F / 129.0F;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

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

TEST(MidiMap, StartsWithoutLinksAndReceivesOnAllChannels) {
    const MidiMap map;
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        EXPECT_EQ(map.controllerOf(parameter), kNone);
        EXPECT_EQ(map.linkValue(parameter), kNoneValue);
    }
    for (std::int32_t controller = 0; controller < 128; ++controller)
        EXPECT_EQ(map.drivenBy(controller), kNone);
    EXPECT_EQ(map.channel(), 17);
}

TEST(MidiMap, LinkingLeavesTheOtherEndsOfEarlierLinks) {
    MidiMap map;
    map.link(30, 7);
    map.link(1, 7);
    expectLinked(map, 1, 7);
    EXPECT_EQ(map.controllerOf(30), 7);
    map.link(1, 9);
    expectLinked(map, 1, 9);
    EXPECT_EQ(map.drivenBy(7), 1);
}

TEST(MidiMap, RelinkingTakesEveryEarlierLinkOfBothEndsAway) {
    MidiMap map;
    map.link(30, 7);
    map.link(55, 7);
    map.link(1, 9);
    map.link(1, 127);
    map.relink(1, 7);
    expectLinked(map, 1, 7);
    for (const std::int32_t parameter : {30, 55}) {
        EXPECT_EQ(map.controllerOf(parameter), kNone);
        EXPECT_EQ(map.linkValue(parameter), kNoneValue);
    }
    for (const std::int32_t controller : {9, 127})
        EXPECT_EQ(map.drivenBy(controller), kNone);
}

TEST(MidiMap, ForgettingEitherEndTakesTheLinkAway) {
    for (const bool isParameterForgotten : {true, false}) {
        SCOPED_TRACE(isParameterForgotten ? "parameter" : "controller");
        MidiMap map;
        map.link(0, 0);
        map.link(55, 127);
        if (isParameterForgotten)
            map.forgetParameter(55);
        else
            map.forgetController(127);
        EXPECT_EQ(map.controllerOf(55), kNone);
        EXPECT_EQ(map.linkValue(55), kNoneValue);
        EXPECT_EQ(map.drivenBy(127), kNone);
        expectLinked(map, 0, 0);
    }
}

TEST(MidiMap, LearningAndForgettingAtRandomNeverPartsTheEndsOfALink) {
    std::mt19937 random(1);
    MidiMap map;
    for (int step = 0; step < 2000; ++step) {
        const auto parameter = static_cast<std::int32_t>(random() % 56);
        const auto controller = static_cast<std::int32_t>(random() % 128);
        switch (random() % 4) {
        case 0:
            map.forgetParameter(parameter);
            break;
        case 1:
            map.forgetController(controller);
            break;
        default:
            map.relink(parameter, controller);
            expectLinked(map, parameter, controller);
        }
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

TEST(MidiMap, ALinkValueOfNoneLeavesTheControllersEndUntilRebuilt) {
    MidiMap map;
    map.link(21, 74);
    map.setLinkValue(21, 1.0F);
    EXPECT_EQ(map.controllerOf(21), kNone);
    EXPECT_EQ(map.parameterOf(74), kNone);
    EXPECT_EQ(map.drivenBy(74), 21);
    map.rebuild();
    EXPECT_EQ(map.drivenBy(74), kNone);
    EXPECT_EQ(map.linkValue(21), 1.0F);
}

TEST(MidiMap, RebuildingLetsTheFirstOfSeveralParametersKeepAController) {
    MidiMap map;
    for (const std::int32_t parameter : {55, 3, 20})
        map.setLinkValue(parameter, valueOf(7));
    map.setLinkValue(4, valueOf(0));
    EXPECT_EQ(map.drivenBy(7), 20); // the one set last
    map.rebuild();
    expectLinked(map, 3, 7);
    expectLinked(map, 4, 0);
    for (const std::int32_t parameter : {20, 55}) {
        EXPECT_EQ(map.controllerOf(parameter), kNone);
        EXPECT_EQ(map.linkValue(parameter), kNoneValue);
    }
}

TEST(MidiMap, ClearingTakesBothEndsAwayAndLeavesTheChannel) {
    MidiMap map;
    map.link(21, 74);
    map.setLinkValue(30, valueOf(7));
    map.setLinkValue(30, 1.0F);
    map.setChannelValue(0.2F);
    map.clear();
    EXPECT_EQ(map.controllerOf(21), kNone);
    EXPECT_EQ(map.drivenBy(74), kNone);
    EXPECT_EQ(map.drivenBy(7), kNone);
    EXPECT_EQ(map.linkValue(30), kNoneValue);
    EXPECT_EQ(map.channel(), 3);
}

TEST(MidiMap, NumbersThatDoNotExistDoNothing) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    MidiMap map;
    map.link(0, 0);
    for (const std::int32_t parameter : {-kMost - 1, -1, 56, 999, kMost}) {
        map.link(parameter, 0);
        map.relink(parameter, 0);
        map.forgetParameter(parameter);
        map.setLinkValue(parameter, valueOf(0));
        EXPECT_EQ(map.controllerOf(parameter), kNone);
        EXPECT_EQ(map.linkValue(parameter), 0.0F);
    }
    for (const std::int32_t controller : {-kMost - 1, -1, 128, 999, kMost}) {
        map.link(0, controller);
        map.relink(0, controller);
        map.forgetController(controller);
        EXPECT_EQ(map.parameterOf(controller), kNone);
        EXPECT_EQ(map.drivenBy(controller), kNone);
    }
    expectLinked(map, 0, 0);
}

TEST(MidiMap, ChannelsReceiveTheirOwnMessages) {
    for (std::int32_t channel = 0; channel <= 17; ++channel) {
        SCOPED_TRACE(channel);
        MidiMap map;
        map.setChannelValue((static_cast<float>(channel) + 0.5F) / 18.0F);
        EXPECT_EQ(map.channel(), channel);
        EXPECT_EQ(map.channelValue(), (static_cast<float>(channel) + 0.5F) / 18.0F);
        for (int sent = 1; sent <= 16; ++sent)
            EXPECT_EQ(map.receives(static_cast<std::uint8_t>(0xB0 + sent - 1)),
                      channel == 17 || channel == sent)
                << sent;
    }
}

TEST(MidiMap, ChannelValuesOutsideTheRangeSelectItsEnds) {
    MidiMap map;
    for (const float above : {1.0F, 2.0F, kInfinity}) {
        map.setChannelValue(above);
        EXPECT_EQ(map.channel(), 17);
    }
    for (const float below : {0.0F, -1.0F, kNaN}) {
        map.setChannelValue(below);
        EXPECT_EQ(map.channel(), 0);
    }
}

} // namespace
} // namespace pedl
