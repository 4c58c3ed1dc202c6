#include "presets/MidiNames.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace pedl {
namespace {

using Text = std::string_view (*)(float) noexcept;

struct Row {
    Text text;
    float normalised;
    const char* expected;
};

Row controller(int position, const char* expected) {
    return {&controllerText, (static_cast<float>(position) + 0.5F) / 131.0F, expected};
}

Row channel(int position, const char* expected) {
    return {&channelText, (static_cast<float>(position) + 0.5F) / 18.0F, expected};
}

TEST(MidiNames, ControllersAndChannelsBearTheirNames) {
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    for (const Row& row : {controller(0, "bank sel MSB cc#0"),
                           controller(9, "control change #9"),
                           controller(10, "pan cc#10"),
                           controller(33, "modul. LSB cc#33"),
                           controller(65, "porta on/off cc#65"),
                           controller(74, "brightness cc#74"),
                           controller(75, "control change #75"),
                           controller(101, "RPN MSB cc#101"),
                           controller(119, "control change #119"),
                           controller(127, "poly mode on cc#127"),
                           controller(128, "not assigned"),
                           controller(129, "assignment not available"),
                           controller(130, ""),
                           channel(0, "OFF"),
                           channel(1, "Ch 1"),
                           channel(16, "Ch 16"),
                           channel(17, "OMNI"),
                           Row{&controllerText, kNaN, "bank sel MSB cc#0"},
                           Row{&channelText, -5.0F, "OFF"},
                           Row{&controllerText, 7.7F, ""},
                           Row{&channelText, 1.0F, "OMNI"}})
        EXPECT_EQ(row.text(row.normalised), row.expected) << row.normalised;
}

TEST(MidiNames, FiftyNineControllersHaveNames) {
    int named = 0;
    for (int number = 0; number < 128; ++number) {
        const Row row = controller(number, "");
        named += row.text(row.normalised).starts_with("control change #") ? 0 : 1;
    }
    EXPECT_EQ(named, 59);
}

} // namespace
} // namespace pedl
