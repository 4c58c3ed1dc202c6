// The hint line, and what the bar says of the control under the mouse.

#include "controls/CZMTHitHintLabel2.h"
#include "tests/editor/EditorWindow.h"

namespace pedl::test {
namespace {

using namespace VSTGUI;

constexpr CPoint kNowhere(5, 5);
constexpr const char* kIdleText = "zmt-sonics.example";

class Hints : public EditorWindow {
protected:
    std::string line() { return find<CZMTHitHintLabel2>(kHintLabel)->getText(); }
    std::string lineOver(CPoint where) {
        hover(where);
        idle();
        return line();
    }
    std::int32_t controllerEntry() {
        return static_cast<std::int32_t>(valueOf(kMidiCCDisplay) * 131.0F);
    }
};

TEST_F(Hints, FollowTheMouseAndRestAfterItHasLeft) {
    EXPECT_EQ(lineOver(middleOf(kPower)), "Bypasses all audio processes: OFF");
    EXPECT_EQ(lineOver(kNowhere), "");
    idle(1470);
    EXPECT_EQ(line(), "");
    idle(20);
    EXPECT_EQ(line(), kIdleText);

    const CPoint gain = middleOf(kGain);
    lineOver(gain);
    window().mouseDown(gain.x, gain.y);
    window().mouseMove(300, 530, kLButton);
    idle();
    EXPECT_EQ(line(), "Input. Sets the input level") << "a drag keeps its hint";
    window().mouseUp(300, 530);

    click(middleOf(kHintsOnOff));
    EXPECT_EQ(lineOver(middleOf(kPower)), kIdleText);
}

TEST_F(Hints, TheBarNamesTheControllerUnderTheMouse) {
    effect.midiMap().link(kFilterCutoffFreq, 74);
    const auto entryOver = [&](std::int32_t tag) {
        lineOver(middleOf(tag));
        return controllerEntry();
    };
    EXPECT_EQ(entryOver(kFilterFreqSlider), 74);
    EXPECT_EQ(entryOver(kCutoffEncoder), 74);
    EXPECT_EQ(entryOver(kGain), 128) << "not assigned";
    EXPECT_EQ(entryOver(kAbout), 129) << "not available";
    hover(kNowhere);
    idle();
    EXPECT_EQ(controllerEntry(), 130) << "nothing";

    VstMidiEvent event{};
    event.type = kVstMidiType;
    event.midiData[0] = static_cast<char>(0xB0);
    VstEvents events{1, 0, {reinterpret_cast<VstEvent*>(&event)}};
    effect.processEvents(&events);
    idle();
    EXPECT_EQ(valueOf(kMidiActivityLED), 1.0F);
    idle(150);
    EXPECT_EQ(valueOf(kMidiActivityLED), 1.0F);
    idle(1);
    EXPECT_EQ(valueOf(kMidiActivityLED), 0.0F);
}

} // namespace
} // namespace pedl::test
