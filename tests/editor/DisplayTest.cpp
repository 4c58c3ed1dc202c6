// Which quantity the digits show and for how long, and how the lamps follow the sound.

#include "controls/CInvisibleDoNothingControl.h"
#include "controls/ZMTIndicatorLED.h"
#include "tests/editor/EditorWindow.h"

namespace pedl::test {
namespace {

using namespace VSTGUI;

constexpr CPoint kNowhere(5, 5);

class Display : public EditorWindow {
protected:
    /// Passes of 10 ms until the digits change.
    std::uint64_t msUntilChange() {
        const std::string before = shownDigits();
        for (std::uint64_t ms = 10; ms < 10000; ms += 10) {
            idle(10);
            if (shownDigits() != before)
                return ms;
        }
        return 0;
    }
    void play(float level) {
        std::vector<float> left(512), right(512), outLeft(512), outRight(512);
        for (std::size_t i = 0; i < left.size(); ++i)
            left[i] = right[i] = level * std::sin(0.05F * static_cast<float>(i));
        float *ins[]{left.data(), right.data()}, *outs[]{outLeft.data(), outRight.data()};
        effect.processReplacing(ins, outs, 512);
    }
};

TEST_F(Display, OpensWithTheDigitsOfItsStateAndTellsNobody) {
    const auto reopened = [&](float sync, float lock) {
        effect.setParameter(kLFOSyncMode, sync);
        effect.setParameter(kModulationOnOff, lock);
        effect.setParameter(kFreez, 1.0F);
        editor.close();
        journal.lines.clear();
        clock.advance(9000);
        EXPECT_TRUE(editor.open(this));
        EXPECT_EQ(heard(), "");
        EXPECT_EQ(find(kGainByENVDefeat) == nullptr, lock == 1.0F);
        EXPECT_EQ(effect.getParameter(kFreez), 1.0F);
        return shownDigits();
    };
    EXPECT_EQ(reopened(0.0F, 1.0F), "21 ");
    EXPECT_EQ(reopened(1.0F, 0.0F), "21 ");
    click(middleOf<CInvisibleDoNothingControl>(kDisplayMode_LFORate));
    for (const float quantity : {0.0F, 1.0F}) { // the permanent one comes with the window
        effect.setParameter(kDisplayParameterMode, quantity);
        EXPECT_EQ(reopened(0.0F, 0.0F), "8 ");
        EXPECT_EQ(reopened(0.5F, 1.0F), "9 ");
    }
    window().wheel(middleOf(kFilterFreqSlider).x, 210, 1.0F); // a touch, fresh on closing
    EXPECT_EQ(reopened(1.0F, 0.0F), "9 ");
    EXPECT_EQ(valueOf<ZMTIndicatorLED>(kDisplayMode_LFORate), 1.0F);
}

TEST_F(Display, ATouchedQuantityStaysForTwoSeconds) {
    hover(middleOf(kLFOEncoder));
    idle();
    EXPECT_EQ(shownDigits(), "8 ");
    hover(kNowhere);
    EXPECT_EQ(msUntilChange(), 2010U);

    click(middleOf<CInvisibleDoNothingControl>(kDisplayMode_LFORate));
    EXPECT_EQ(shownDigits(), "8 ") << "at once";
    hover(middleOf(kCutoffEncoder));
    idle();
    idle(5000);
    EXPECT_EQ(shownDigits(), "21 ") << "as long as the mouse is there";
    hover(kNowhere);
    EXPECT_EQ(msUntilChange(), 2010U);

    effect.setParameter(kLFOSyncMode, 0.5F);
    hover(middleOf(kLFOEncoder), kAlt);
    idle();
    EXPECT_EQ(shownDigits(), "10 ") << "Alt asks for the tempo";
    hover(kNowhere);
    EXPECT_EQ(msUntilChange(), 1510U);
    EXPECT_EQ(shownDigits(), "9 ");
    effect.setParameter(kLFOSyncMode, 1.0F);
    hover(middleOf(kLFOEncoder), kAlt);
    idle();
    EXPECT_EQ(shownDigits(), "133 ");
}

TEST_F(Display, LampsRiseWithTheSoundAndFallInHalfASecond) {
    effect.setParameter(kDryDefeat, 1.0F);
    for (int i = 0; i < 100; ++i)
        play(0.25F);
    MeterSnapshot levels;
    effect.fillMeterSnapshot(levels); // forgets the peaks
    play(0.25F);
    idle(0);
    const float dry = valueOf(kDryLEDMeter);
    EXPECT_NEAR(dry, std::pow(0.125, 0.125), 1e-3) << "the eighth root of half the peak";
    idle(100);
    EXPECT_NEAR(valueOf(kDryLEDMeter), dry - 0.2F, 1e-5);
    idle(500);
    EXPECT_EQ(valueOf(kDryLEDMeter), 0.0F);

    effect.setParameter(kLFOFreq, 1.99F / 14.99F); // 2 Hz: a mean of three
    editor.close();
    open();
    effect.fillMeterSnapshot(levels);
    for (const double passes : {1.0, 2.0, 3.0, 3.0}) {
        idle();
        const double third = (levels.lfoLeft + 1.0) / 2.0 / 3.0;
        EXPECT_NEAR(valueOf(kLfoLEDMeter_L), passes * third + 2 * 0.03, 1e-5);
    }
}

} // namespace
} // namespace pedl::test
