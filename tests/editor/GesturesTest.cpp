// What the host hears of each control, and what the effect learns from it.

#include "controls/CInvisibleDoNothingControl.h"
#include "tests/editor/EditorWindow.h"

namespace pedl::test {
namespace {

using namespace VSTGUI;

constexpr float kOff = 0.0F, kOwnTempo = 0.5F, kHostTempo = 1.0F;

class Gestures : public EditorWindow {
protected:
    // What the host hears of them

    std::string wheel(std::int32_t tag, float notches, std::int32_t modifiers = 0) {
        const CPoint where = middleOf(tag);
        window().wheel(where.x, where.y, notches, modifiers);
        return heard();
    }
    std::string drag(std::int32_t tag, CCoord upwards, std::int32_t modifiers = 0) {
        const CPoint where = middleOf(tag);
        window().mouseDown(where.x, where.y, kLButton | modifiers);
        window().mouseMove(where.x, where.y - upwards, kLButton | modifiers);
        window().mouseUp(where.x, where.y - upwards, modifiers);
        return heard();
    }
    void set(std::int32_t parameter, float value) {
        effect.setParameter(parameter, value);
        heard();
    }
};

TEST_F(Gestures, AreEditsOfParametersAlone) {
    EXPECT_EQ(wheel(kFilterReso, -1.0F, kShift), "begin 20, automate 20 0.288297, end 20");
    EXPECT_EQ(drag(kLFOSpread, 25), "begin 13, automate 13 0.6, end 13");
    click(middleOf(kFilterFreqSlider), kLButton | kControl);
    EXPECT_EQ(heard(), "begin 21, automate 21 0.547818, end 21");
    click(middleOf<CInvisibleDoNothingControl>(kDisplayMode_Cutoff));
    EXPECT_EQ(heard(), "");
    click(middleOf(kFreez)); // which gives it the focus
    heard();
    window().keyDown(VKEY_RETURN);
    EXPECT_EQ(heard().find("end 3"), std::string::npos) << "nothing was begun";
}

TEST_F(Gestures, EncodersMoveWhatTheSyncModeAsksFor) {
    set(kLFOFreq, 0.5F);
    set(kLFOSyncMode, kOff);
    EXPECT_EQ(wheel(kLFOEncoder, 1.0F), "begin 8, automate 8 0.502335, end 8") << "0.035 Hz";
    EXPECT_EQ(wheel(kLFOEncoder, -1.0F, kShift), "begin 8, automate 8 0.501668, end 8")
        << "0.01 Hz";
    EXPECT_EQ(drag(kLFOEncoder, 4), "begin 8, automate 8 0.503669, end 8") << "0.03 Hz";
    EXPECT_EQ(drag(kLFOEncoder, 4, kShift), "begin 8, automate 8 0.504003, end 8") << "0.005 Hz";
    set(kLFOFreq, 1.0F);
    EXPECT_EQ(wheel(kLFOEncoder, 3.0F), "begin 8, automate 8 1, end 8")
        << "no farther than the end";

    set(kFilterCutoffFreq, 0.5F);
    EXPECT_EQ(wheel(kCutoffEncoder, 1.0F), "begin 21, automate 21 0.501251, end 21")
        << "25 of 19980 steps";
    EXPECT_EQ(drag(kCutoffEncoder, 4), "begin 21, automate 21 0.503253, end 21") << "40";
    EXPECT_EQ(drag(kCutoffEncoder, 4, kShift), "begin 21, automate 21 0.503303, end 21") << "1";

    for (const float mode : {kOwnTempo, kHostTempo}) {
        set(kLFOSyncMode, mode);
        set(kLFOSynchroRate, 9.5F / 31);
        EXPECT_EQ(wheel(kLFOEncoder, 1.0F), "begin 9, automate 9 0.322581, end 9") << "10 of 31";
        drag(kLFOEncoder, 4);
        EXPECT_EQ(drag(kLFOEncoder, 4), "") << "a drag's third increment makes a step";
        EXPECT_EQ(drag(kLFOEncoder, -4), "begin 9, automate 9 0.290323, end 9");
    }
    set(kLFOSyncMode, kOwnTempo);
    set(kTempoSetup, 105.0F / 585);
    EXPECT_EQ(wheel(kLFOEncoder, 1.0F, kAlt), "begin 10, automate 10 0.179829, end 10") << "120.2";
    EXPECT_EQ(drag(kLFOEncoder, -4, kAlt), "begin 10, automate 10 0.178803, end 10") << "119.6";
    set(kLFOSyncMode, kHostTempo);
    EXPECT_EQ(wheel(kLFOEncoder, 1.0F, kAlt), "") << "the host's tempo is the host's";
}

TEST_F(Gestures, OnlyWhatTheUserTouchesIsLearnt) {
    effect.startLearn();
    wheel(kLFOEncoder, 1.0F);
    EXPECT_EQ(effect.learnState().target(), kLFOFreq);
    idle(3000); // the display goes back by itself
    effect.setParameter(kGain, 0.2F);
    EXPECT_EQ(effect.learnState().target(), kLFOFreq) << "what the host changes does not count";
    wheel(kLFOSyncMode, 1.0F); // shows the rate
    effect.setParameter(kGain, 0.3F);
    EXPECT_EQ(effect.learnState().target(), kLFOSyncMode);
    wheel(kFilterFreqSlider, 1.0F);
    EXPECT_EQ(effect.learnState().target(), kFilterCutoffFreq);
    wheel(kFreezMode, 1.0F); // brings the freeze button to its rest
    EXPECT_EQ(effect.learnState().target(), kFreezMode);
}

} // namespace
} // namespace pedl::test
