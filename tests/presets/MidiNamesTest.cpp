#include "presets/MidiNames.h"

#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <set>
#include <string>

namespace pedl {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

std::string controllerAt(int position) {
    return std::string(controllerText((static_cast<float>(position) + 0.5F) / 131.0F));
}

std::string channelAt(int position) {
    return std::string(channelText((static_cast<float>(position) + 0.5F) / 18.0F));
}

TEST(MidiNames, ControllersBearTheirNames) {
    const std::map<int, std::string> some{{0, "bank sel MSB cc#0"},
                                          {1, "modulation cc#1"},
                                          {3, "control change #3"},
                                          {9, "control change #9"},
                                          {10, "pan cc#10"},
                                          {33, "modul. LSB cc#33"},
                                          {65, "porta on/off cc#65"},
                                          {74, "brightness cc#74"},
                                          {75, "control change #75"},
                                          {100, "RPN LSB cc#100"},
                                          {119, "control change #119"},
                                          {121, "reset ctrl cc#121"},
                                          {126, "mono mode on cc#126"},
                                          {128, "not assigned"},
                                          {129, "assignment not available"},
                                          {130, ""}};
    for (const auto& [position, text] : some)
        EXPECT_EQ(controllerAt(position), text);
}

TEST(MidiNames, EachControllerTellsItsNumberAndFiftyNineHaveNames) {
    std::set<std::string> texts;
    int withoutName = 0;
    for (int number = 0; number < 128; ++number) {
        const std::string text = controllerAt(number);
        EXPECT_EQ(text.substr(text.find('#')), "#" + std::to_string(number));
        EXPECT_TRUE(texts.insert(text.substr(0, text.find('#'))).second ||
                    text.starts_with("control change"))
            << text << " is there twice";
        withoutName += text.starts_with("control change #") ? 1 : 0;
    }
    EXPECT_EQ(128 - withoutName, 59);
}

TEST(MidiNames, ChannelsAreOffSixteenAndAll) {
    EXPECT_EQ(channelAt(0), "OFF");
    for (int channel = 1; channel <= 16; ++channel)
        EXPECT_EQ(channelAt(channel), "Ch " + std::to_string(channel));
    EXPECT_EQ(channelAt(17), "OMNI");
}

TEST(MidiNames, ValuesOutsideTheRangeSelectItsEnds) {
    for (const float below : {0.0F, -5.0F, kNaN}) {
        EXPECT_EQ(controllerText(below), "bank sel MSB cc#0");
        EXPECT_EQ(channelText(below), "OFF");
    }
    for (const float above : {1.0F, 7.7F, std::numeric_limits<float>::infinity()}) {
        EXPECT_EQ(controllerText(above), "");
        EXPECT_EQ(channelText(above), "OMNI");
    }
}

} // namespace
} // namespace pedl
