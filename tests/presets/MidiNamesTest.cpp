#include "presets/MidiNames.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace pedl {
namespace {

/// The text in the middle of a position, and beyond all of them.
std::string controllerAt(int position) {
    return std::string(controllerText((static_cast<float>(position) + 0.5F) / 131.0F));
}
std::string channelAt(int position) {
    return std::string(channelText((static_cast<float>(position) + 0.5F) / 18.0F));
}

TEST(MidiNames, ControllersAndChannelsBearTheirNames) {
    const std::map<int, std::string> controllers{{-9, "bank sel MSB cc#0"},
                                                 {0, "bank sel MSB cc#0"},
                                                 {9, "control change #9"},
                                                 {10, "pan cc#10"},
                                                 {33, "modul. LSB cc#33"},
                                                 {65, "porta on/off cc#65"},
                                                 {74, "brightness cc#74"},
                                                 {75, "control change #75"},
                                                 {101, "RPN MSB cc#101"},
                                                 {119, "control change #119"},
                                                 {127, "poly mode on cc#127"},
                                                 {128, "not assigned"},
                                                 {129, "assignment not available"},
                                                 {130, ""},
                                                 {999, ""}};
    for (const auto& [position, text] : controllers)
        EXPECT_EQ(controllerAt(position), text);
    for (const auto& [position, text] : std::map<int, std::string>{
             {-9, "OFF"}, {0, "OFF"}, {1, "Ch 1"}, {16, "Ch 16"}, {17, "OMNI"}, {99, "OMNI"}})
        EXPECT_EQ(channelAt(position), text);
    int named = 0;
    for (int number = 0; number < 128; ++number)
        named += controllerAt(number).starts_with("control change #") ? 0 : 1;
    EXPECT_EQ(named, 59);
}

} // namespace
} // namespace pedl
