// What mouse, wheel and keys do to each control, as listener and host hear it.

#include "controls/CAbout.h"
#include "controls/CAnimKnob3.h"
#include "controls/CEcncoderKnob03.h"
#include "controls/CHorizontalSwitchSeq.h"
#include "controls/CHorizontalSwitchWithDynamicLabel.h"
#include "controls/CInvisibleDoNothingControl.h"
#include "controls/CLFOWaveSelector2.h"
#include "controls/CPedlInvisible2Mix.h"
#include "controls/CSaveLoadButton.h"
#include "controls/CZMKickButton.h"
#include "controls/CZMParamDisplay.h"
#include "controls/CZMRockerSwitch.h"
#include "controls/CZMTHitHintLabel2.h"
#include "controls/CZMTTextEdit.h"
#include "controls/CpedlFilterRadioSlider.h"
#include "controls/CpedlLFOsyncDisplay.h"
#include "controls/ZMTMonoAndBistableButtonModulator.h"
#include "controls/ZMTOnOffButton.h"
#include "controls/ZMTPedlOneDotCounter.h"
#include "tests/controls/Strips.h"
#include "tests/foundation/vstgui/ToolkitWindow.h"

#include <gtest/gtest.h>

namespace pedl::test {
namespace {

using namespace VSTGUI;

const CRect kPlace(20, 20, 60, 60);
const CPoint kOrigin(0, 0);

/// A window with one control in it, that keeps the values which the control tells.
class Gesture : public ::testing::Test, public ToolkitWindow {
protected:
    template <typename Control> Control* put(Control* control) {
        theFrame().addView(control);
        shown = control;
        onValue = [this] { told.push_back(shown->getValue()); };
        return control;
    }
    std::vector<float> takeTold() { return std::exchange(told, {}); }
    void controlBeginEdit(CControl* control) override {
        ToolkitWindow::controlBeginEdit(control);
        if (onBegin)
            onBegin();
    }

    CControl* shown = nullptr;
    std::vector<float> told;
    std::function<void()> onBegin;
};

using Values = std::vector<float>;

TEST_F(Gesture, AKnobIsDraggedWithoutAJumpWhenShiftComesAndGoes) {
    auto* const knob = put(new CAnimKnob3(kPlace, this, 1, 101, 40, 40, strip(101, 40, 40).get()));
    knob->setValue(0.5F);
    window().mouseDown(30, 40);
    EXPECT_EQ(log.take(), "begin, host begins 1") << "nothing has moved yet";
    window().mouseMove(80, 90, kLButton);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.5F) << "right and down cancel each other out";
    window().mouseMove(130, 40, kLButton);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.6F);
    window().mouseMove(130, 40, kLButton | kShift);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.6F);
    window().mouseMove(130, -10, kLButton | kShift);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.61F);
    window().mouseMove(130, -10, kLButton);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.61F);
    window().mouseUp(130, -10);
    EXPECT_TRUE(log.take().ends_with("value, host ends 1, end"));

    for (const int32_t reset : {kLButton | kControl, kLButton | kDoubleClick}) {
        knob->setValue(0.1F);
        window().mouseDown(30, 40, reset);
        window().mouseMove(90, 40, kLButton);
        window().mouseUp(90, 40);
        EXPECT_TRUE(log.take().ends_with(kOneEdit)) << "no drag follows";
        EXPECT_EQ(takeTold().back(), 0.5F);
        EXPECT_EQ(knob->getValue(), 0.5F);
    }
    window().wheel(30, 40, 3.0F);
    window().wheel(30, 40, 0.05F);
    window().wheel(30, 40, -1.0F, kShift);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.5F + 0.01F + 0.0005F - 0.001F);
}

TEST_F(Gesture, AnEncoderSendsIncrementsThatGrowWithTheSpeed) {
    auto* const encoder =
        put(new CEcncoderKnob03(kPlace, this, 1, 101, 40, 40, strip(101, 40, 40).get()));
    encoder->setCoarseFactor(10.0F);
    window().mouseDown(30, 40);
    window().mouseMove(31, 40, kLButton);
    window().mouseMove(31, 44, kLButton);
    window().mouseMove(31, 24, kLButton);
    window().mouseMove(31, 23, kLButton | kShift);
    window().mouseUp(31, 23);
    const Values sent = takeTold();
    ASSERT_EQ(sent.size(), 4U);
    EXPECT_FLOAT_EQ(sent[0], 10.0F);
    EXPECT_FLOAT_EQ(sent[1], -10.0F);
    EXPECT_FLOAT_EQ(sent[2], 10.0F * std::pow(16.0F, 0.8F));
    EXPECT_FLOAT_EQ(sent[3], 1.0F);
    encoder->setStep(0.05F);
    window().wheel(30, 40, 1.0F);
    window().wheel(30, 40, -2.0F, kShift);
    EXPECT_EQ(takeTold(), (Values{12.5F, -50.0F}));
    encoder->setPosition(1.02F);
    encoder->wrapPosition();
    EXPECT_EQ(encoder->getPosition(), 0.0F);
    EXPECT_EQ(log.take().find("begin"), std::string::npos);
}

TEST_F(Gesture, SwitchesAndButtonsTellTheirPositions) {
    auto* const labelled = put(new CHorizontalSwitchWithDynamicLabel(
        kPlace, this, 1, 3, 40, 0, strip(3, 40, 40).get(), kOrigin));
    labelled->setHorizontalInset(5.0);
    click(40, 40);
    EXPECT_EQ(takeTold(), (Values{0.0F, 0.5F}));
    EXPECT_EQ(log.take(), "begin, host begins 1, value, value, host ends 1, end");
    press(VKEY_RIGHT);
    press(VKEY_RIGHT);
    window().wheel(40, 40, -1.0F);
    window().wheel(40, 40, 1.0F, 0, kMouseWheelAxisX);
    EXPECT_EQ(takeTold(), (Values{1.0F, 0.5F, 1.0F})) << "to the right is upwards";
    theFrame().removeAll();

    put(new CHorizontalSwitchSeq(kPlace, this, 1, 3, 40, 3, strip(3, 40, 40).get(), kOrigin));
    for (int i = 0; i < 3; ++i)
        click(40, 40);
    EXPECT_EQ(takeTold(), (Values{0.5F, 1.0F, 0.0F}));
    theFrame().removeAll();

    put(new ZMTOnOffButton(kPlace, this, 1, nullptr))->setValue(0.5F);
    click(40, 40);
    EXPECT_EQ(takeTold(), (Values{0.5F, 0.0F})) << "the old value, then the new one";
    theFrame().removeAll();

    auto* const freeze = put(new ZMTMonoAndBistableButtonModulator(kPlace, this, 1, nullptr));
    log.take();
    click(40, 40);
    EXPECT_EQ(log.take(), "begin, host begins 1, value, value, host ends 1, end");
    window().mouseDown(40, 40);
    window().mouseMove(190, 90, kLButton);
    window().mouseUp(190, 90);
    freeze->setMode(2);
    click(40, 40);
    EXPECT_EQ(takeTold(), (Values{1.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F}));
    press(VKEY_RETURN);
    EXPECT_EQ(takeTold(), Values{}) << "a toggle's key press is not told";
    theFrame().removeAll();

    put(new CSaveLoadButton(kPlace, this, 1, 13, nullptr));
    for (const int32_t buttons : {+kLButton, +kRButton, kRButton | kShift, kLButton | kRButton})
        shown->onMouseDown(*std::make_unique<CPoint>(40, 40), buttons);
    EXPECT_EQ(takeTold(), (Values{1.0F, 0.5F, 1.0F}));
    theFrame().removeAll();

    put(new CZMKickButton(kPlace, this, 1, 13, nullptr, kOrigin, true));
    click(40, 40);
    click(40, 40, kLButton | kDoubleClick);
    click(40, 40, kLButton | kDoubleClick | kControl);
    EXPECT_EQ(takeTold(), (Values{1.0F, 0.5F}));
    theFrame().removeAll();

    put(new CInvisibleDoNothingControl(kPlace, this, 1));
    click(40, 40, kRButton);
    EXPECT_EQ(takeTold().size(), 1U);
}

TEST_F(Gesture, ARockerTellsOnceAndItsTimerTakesItBack) {
    auto* const rocker = put(new CZMRockerSwitch(kPlace, this, 1, 8, nullptr));
    click(40, 40);
    EXPECT_EQ(takeTold(), Values{1.0F}) << "the centre line belongs to the right";
    window().wheel(40, 40, -1.0F);
    EXPECT_EQ(takeTold(), Values{}) << "not while the timer runs";
    clock.advance(101);
    window().turn();
    window().wheel(40, 40, -1.0F);
    window().wheel(40, 40, -1.0F);
    EXPECT_EQ(takeTold(), Values{-1.0F});
    clock.advance(51);
    window().turn();
    EXPECT_EQ(takeTold(), Values{0.0F});
    EXPECT_EQ(log.take(), "begin, host begins 1, value, host ends 1, end, "
                          "begin, host begins 1, value, value, host ends 1, end");
    click(40, 40);
    for (int times = 0; times < 2; ++times) {
        theFrame().removeView(rocker, false);
        put(rocker);
    }
    clock.advance(101);
    window().turn();
    EXPECT_EQ(log.take(), kOneEdit) << "ended when it left the frame, and only then";
    theFrame().removeAll();
    takeTold();

    auto* const channel = put(new CZMParamDisplay(kPlace));
    channel->setListener(this);
    channel->stepCount = 18;
    window().wheel(40, 40, 1.0F);
    window().wheel(40, 40, 1.0F);
    clock.advance(51);
    window().turn();
    window().wheel(40, 40, 1.0F);
    EXPECT_EQ(takeTold(), (Values{1.5F / 18.0F, 2.5F / 18.0F}));
}

TEST_F(Gesture, TheWaveListOpensAndClosesInEveryWay) {
    const Bitmap waves = strip(7, 40, 8);
    auto* const list = put(new CLFOWaveSelector2(CRect(20, 20, 60, 28), CRect(20, 20, 60, 76), this,
                                                 4, waves.get(), nullptr, nullptr, 6, 6));
    click(25, 24); // the left half: one back, round the end
    click(55, 24);
    EXPECT_EQ(takeTold(), (Values{1.0F, 0.0F}));
    window().mouseDown(25, 24);
    window().mouseMove(41, 24, kLButton);
    window().mouseMove(42, 24, kLButton);
    window().mouseUp(42, 24);
    EXPECT_EQ(takeTold(), (Values{0.0F, 1.0F / 6.0F})) << "17 pixels, not 16";

    click(30, 24, kRButton);
    EXPECT_TRUE(list->expanded);
    EXPECT_EQ(list->getMouseableArea().bottom, 76);
    click(30, 47);
    EXPECT_FALSE(list->expanded);
    EXPECT_EQ(takeTold(), Values{0.5F}) << "the fourth row";
    click(30, 24, kRButton);
    window().wheel(30, 24, 1.0F);
    EXPECT_FALSE(list->expanded);
    click(30, 24, kRButton);
    theFrame().setFocusView(nullptr);
    EXPECT_FALSE(list->expanded);
    EXPECT_EQ(takeTold(), Values{});
    list->setValue(5.0F / 6.0F);
    EXPECT_EQ(list->currentIndex, 5);

    add("other", CRect(100, 20, 140, 60))->setWantsFocus(true);
    const std::function<void()> otherWays[] = {
        [&] { click(110, 30); }, [&] { press(VKEY_TAB); }, [&] { window().activate(false); },
        [&] { theFrame().removeView(list, false); }, // opened without the focus
    };
    for (const auto& close : otherWays) {
        click(30, 24, kRButton);
        ASSERT_TRUE(list->expanded);
        window().turn();
        close();
        EXPECT_FALSE(list->expanded);
        window().turn();
        ASSERT_FALSE(window().lastPainted().empty());
        EXPECT_EQ(window().lastPainted().front(), CRect(20, 20, 60, 76)) << "what it covered";
    }
    list->forget();
}

TEST_F(Gesture, ReturnOnTheFreezeButtonKeepsItsHabits) {
    auto* const freeze = put(new ZMTMonoAndBistableButtonModulator(kPlace, this, 1, nullptr));
    theFrame().setFocusView(freeze);
    for (const auto& [mode, toldByPress, afterRelease] :
         {std::tuple{0, Values{1.0F}, 0.0F}, {1, Values{}, 0.0F}, {2, Values{}, 1.0F}}) {
        freeze->setMode(mode);
        takeTold();
        press(VKEY_RETURN);
        EXPECT_EQ(takeTold(), toldByPress) << mode;
        log.take();
        window().keyUp(VKEY_RETURN);
        EXPECT_EQ(freeze->getValue(), afterRelease) << mode;
        EXPECT_EQ(log.take(), "host ends 1, end") << "not told, and nothing begins it";
    }
}

TEST_F(Gesture, AButtonThatItsListenerTakesAwayIsNotHeldAnyLonger) {
    const auto pressOnce = [&](CControl* control) {
        onValue = [&] {
            told.push_back(shown->getValue());
            theFrame().removeView(shown, false);
        };
        click(40, 40);
        EXPECT_EQ(control->getValue(), 0.0F);
        EXPECT_EQ(control->onMouseMoved(*std::make_unique<CPoint>(), 0), kMouseEventNotHandled);
        control->forget();
    };
    auto* const freeze = put(new ZMTMonoAndBistableButton(kPlace, this, 1, nullptr));
    freeze->setMode(1);
    log.take();
    pressOnce(freeze);
    EXPECT_EQ(log.take(), "begin, host begins 1, value, host ends 1, end, value");
    pressOnce(put(new CZMKickButton(kPlace, this, 1, 13, nullptr, kOrigin, false)));
}

TEST_F(Gesture, AnEditEndsOnceWhereverItsListenerTakesTheControlAway) {
    const auto takeAway = [&] { theFrame().removeView(shown, false); };
    auto* const knob = put(new CAnimKnob3(kPlace, this, 1, 101, 40, 40, strip(101, 40, 40).get()));
    onBegin = takeAway;
    click(30, 40);
    EXPECT_EQ(log.take(), "begin, end") << "the host has heard of nothing";
    EXPECT_FALSE(knob->mouseActive);
    onBegin = {};
    theFrame().addView(knob);
    click(30, 40);
    theFrame().removeView(knob);
    EXPECT_EQ(log.take(), "begin, host begins 1, host ends 1, end");

    auto* const encoder =
        put(new CEcncoderKnob03(kPlace, this, 1, 101, 40, 40, strip(101, 40, 40).get()));
    theFrame().setFocusView(encoder);
    onValue = takeAway;
    press(VKEY_UP);
    EXPECT_EQ(log.take(), kOneEdit);
    encoder->forget();

    auto* const button = put(new CSaveLoadButton(kPlace, this, 1, 13, nullptr));
    theFrame().setFocusView(button);
    onBegin = takeAway;
    press(VKEY_RETURN);
    EXPECT_EQ(log.take(), "begin, end") << "the held key was let go of before the host heard";
    button->forget();
}

/// Plain arithmetic beside the counter's digits.
TEST_F(Gesture, DigitsCarryAndBorrowWithinTheRange) {
    auto* const tempo =
        put(new ZMTPedlOneDotCounter(CRect(0, 0, 135, 41), this, 10, 27.0F, strip(13, 27, 41).get(),
                                     5, 1, 1, nullptr, nullptr, true));
    tempo->setRange(15, 600);
    const auto tenths = [&] {
        int number = 0;
        for (int i = 4; i >= 0; --i)
            number = number * 10 + tempo->digits[static_cast<std::size_t>(i)];
        return number;
    };
    for (int number = 150; number <= 6000; number += 7)
        for (const int delta : {1, -1})
            for (int digit = 1, place = 1; digit <= 4; ++digit, place *= 10) {
                tempo->setDisplayedNumber(static_cast<float>(number) / 10.0F);
                tempo->stepDigit(delta, digit);
                const int after = number + delta * place;
                ASSERT_EQ(tenths(), after < 150 || after > 6000 ? number : after)
                    << number << " digit " << digit;
            }

    tempo->setDisplayedNumber(99.9F);
    log.take();
    window().mouseDown(110, 20);
    window().mouseMove(110, 5, kLButton);
    window().mouseMove(110, 19, kLButton);
    window().mouseUp(110, 19);
    EXPECT_EQ(tenths(), 1000);
    EXPECT_EQ(takeTold().size(), 2U) << "the number of the press, and that of the step";
    EXPECT_EQ(log.take(), "begin, host begins 10, value, value, host ends 10, end");
    window().wheel(40, 20, -1.0F);
    EXPECT_EQ(tenths(), 1000) << "not below the range";
    click(10, 20);
    tempo->editable = false;
    click(110, 20);
    window().wheel(110, 20, 1.0F);
    EXPECT_EQ(log.take(), "begin, host begins 10, value, host ends 10, end") << "of the wheel";

    auto* const note =
        new CpedlLFOsyncDisplay(CRect(0, 50, 135, 91), this, 9, 27.0F, nullptr, nullptr, nullptr);
    put(note);
    for (int step = 1; step <= 32; ++step) {
        window().wheel(60, 60, 1.0F);
        EXPECT_EQ(note->getValue(), static_cast<float>(std::min(step, 31)) / 31.0F);
    }
    takeTold();
    window().mouseDown(60, 60);
    window().mouseMove(60, 70, kLButton);
    window().mouseUp(60, 70);
    EXPECT_EQ(takeTold(), (Values{1.0F, 30.0F / 31.0F}));
}

TEST_F(Gesture, TheCutOffSliderIsHeldWhereItIsGrabbed) {
    auto* const slider = put(new CpedlFilterRadioSlider(CRect(0, 0, 147, 18), this, 1, 7, 107,
                                                        strip(1, 17, 12).get(), nullptr, kOrigin));
    slider->setFreeClick(false);
    slider->setDefaultValue(0.25F);
    slider->setValue(0.5F);
    click(30, 9);
    click(60, 15);
    EXPECT_EQ(log.take(), "") << "beside and below the handle";
    window().mouseDown(60, 9);
    window().mouseMove(60, 9, kLButton);
    EXPECT_FLOAT_EQ(slider->getValue(), 0.5F) << "nothing snaps";
    window().mouseMove(70, 9, kLButton);
    EXPECT_FLOAT_EQ(slider->getValue(), 0.6F);
    window().mouseMove(70, 9, kLButton | kShift);
    EXPECT_FLOAT_EQ(slider->getValue(), 0.6F);
    window().mouseMove(80, 9, kLButton | kShift);
    EXPECT_FLOAT_EQ(slider->getValue(), 0.61F);
    window().mouseMove(110, 9, kLButton | kRButton);
    window().mouseMove(70, 9, kLButton);
    EXPECT_FLOAT_EQ(slider->getValue(), 0.6F) << "another button does not end the drag";
    window().mouseUp(70, 9);
    slider->setFreeClick(true);
    click(100, 9);
    EXPECT_NEAR(slider->getValue(), 0.86F, 0.01F) << "its middle comes under the mouse";
    window().mouseDown(30, 9, kLButton | kControl);
    EXPECT_EQ(slider->getValue(), 0.25F);
    log.take();
    slider->setValue(std::log10(50.0F) / 3.0F);
    press(VKEY_RIGHT);
    EXPECT_NEAR(20 * std::pow(1000.0F, slider->getValue()), 2000, 0.1);
    press(VKEY_DOWN, MODIFIER_SHIFT);
    EXPECT_NEAR(20 * std::pow(1000.0F, slider->getValue()), 2000 / std::exp2(1.0 / 12.0), 0.1);
    EXPECT_EQ(log.take(), std::string(kOneEdit) + ", " + kOneEdit);
    slider->setValueScale(2.0F);
    window().mouseDown(100, 9);
    window().mouseMove(190, 9, kLButton);
    EXPECT_EQ(slider->getValue(), 0.5F);
}

TEST_F(Gesture, AMixKeySendsWhatEachEventMovedAndRests) {
    auto* const mix = put(new CPedlInvisible2Mix(kPlace, this, 1, nullptr));
    window().mouseDown(40, 40);
    window().mouseMove(43, 40, kLButton);
    window().mouseMove(43, 41, kLButton);
    window().mouseUp(43, 41);
    window().wheel(40, 40, 5.0F);
    window().mouseDown(40, 40, kLButton | kControl);
    window().mouseDown(40, 40, kLButton | kDoubleClick);
    EXPECT_EQ(takeTold(),
              (Values{0.5F - 0.006F, 0.5F + 0.002F, 0.5F - 1.0F / 48.0F, -1000.0F, -1000.0F}));
    EXPECT_EQ(mix->getValue(), 0.5F);
}

class CountingOpener : public DocumentOpener {
public:
    bool open(const std::string& target) override {
        opened += target;
        return true;
    }
    std::string opened;
};

TEST_F(Gesture, TextsAndTheAboutPictureOpenAndClose) {
    auto* const hint = put(new CZMTHitHintLabel2(CRect(0, 80, 200, 95), this, 161,
                                                 CRect(50, 80, 150, 95), "idle", nullptr, 0));
    const CColor white(255, 255, 255, 180);
    hint->showPlainHint("idle", white);
    window().turn();
    hint->showPlainHint("idle", white);
    EXPECT_FALSE(hint->isDirty()) << "an idle that changes nothing draws nothing";
    click(100, 90, kLButton | kDoubleClick);
    EXPECT_EQ(takeTold(), Values{});
    hint->showLinkHint("idle", white);
    click(100, 90);
    click(20, 90, kLButton | kDoubleClick);
    click(100, 90, kLButton | kDoubleClick);
    EXPECT_EQ(takeTold(), Values{1.0F});
    hint->showPlainHint("", white); // the shared font upright again

    auto* const name =
        put(new CZMTTextEdit(CRect(0, 0, 120, 16), this, 137, "Organ", nullptr, 0, true));
    name->setValue(0.3F);
    EXPECT_STREQ(name->getText(), "Organ") << "a name is no number";
    log.take();
    click(10, 8);
    EXPECT_TRUE(name->isEditing());
    window().typeText(std::string(300, 'x').c_str());
    press(VKEY_RETURN);
    EXPECT_FALSE(name->isEditing());
    EXPECT_EQ(std::string(name->getText()), std::string(255, 'x'));
    EXPECT_EQ(log.take(), "begin, host begins 137, value, host ends 137, end");
    click(10, 8);
    theFrame().removeView(name);

    CountingOpener opener;
    auto* const about =
        new CAbout(CRect(150, 0, 190, 20), this, 130, nullptr, CRect(0, 0, 200, 100), kOrigin,
                   kOrigin, kOrigin, strip(2, 40, 10).get());
    about->setLink(&opener, "https://zmt-sonics.example/");
    put(about);
    for (const double y : {90.0, 142.0}) {
        click(160, 10);
        EXPECT_EQ(about->getValue(), 1.0F);
        CPoint where(100, y);
        theFrame().getModalView()->onMouseDown(where, kLButton);
        EXPECT_EQ(theFrame().getModalView(), nullptr);
        EXPECT_EQ(about->getValue(), 0.0F);
    }
    EXPECT_EQ(opener.opened, "https://zmt-sonics.example/");
    click(160, 10);
    close(); // with the picture open
}

} // namespace
} // namespace pedl::test
