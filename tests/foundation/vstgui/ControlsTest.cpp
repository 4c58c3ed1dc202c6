#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/controls/cbuttons.h"
#include "vstgui/lib/controls/cknob.h"
#include "vstgui/lib/controls/cmoviebitmap.h"
#include "vstgui/lib/controls/csplashscreen.h"
#include "vstgui/lib/controls/cswitch.h"
#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

namespace VSTGUI {
namespace {

const CRect kPlace(20, 10, 80, 70); // 60 by 60, its centre at (50, 40)

/// A window with one control on a strip of pictures; picture i has the grey level 10 * i.
class StripWindow : public ToolkitWindow {
public:
    explicit StripWindow(int pictures) {
        COffscreenContext* context = COffscreenContext::create(frame, 60, 60 * pictures);
        context->beginDraw();
        for (int i = 0; i < pictures; ++i) {
            const auto grey = static_cast<uint8_t>(10 * i);
            context->setFillColor(CColor(grey, grey, grey, 255));
            context->drawRect(CRect(0, 60 * i, 60, 60 * (i + 1)), kDrawFilled);
        }
        context->endDraw();
        strip = context->getBitmap();
        strip->remember();
        context->forget();
    }
    ~StripWindow() override {
        close();
        EXPECT_EQ(strip->getNbReference(), 1) << "given back by every control";
        strip->forget();
    }

    template <class Control> Control* show(Control* control) {
        theFrame().addView(control);
        window().turn();
        log.take();
        return control;
    }
    /// Which picture is seen.
    int picture() {
        window().turn();
        return static_cast<int>((window().surface()->pixelAt(50, 40) & 0xFF) / 10);
    }

    CBitmap* strip;
};

TEST(Pictures, EachControlRoundsItsOwnWay) {
    StripWindow w(5);
    auto* knob = w.show(new CAnimKnob(kPlace, &w, 1, /*pictures*/ 99, /*height*/ 60, w.strip));
    EXPECT_EQ(knob->getNumSubPixmaps(), 5) << "counted from the strip";
    auto* const withHandle = new CKnob(kPlace, &w, 1, w.strip, w.strip);
    w.show(static_cast<CKnob*>(withHandle->newCopy()));
    withHandle->forget();
    struct Row {
        float value;
        int ofKnob, ofOthers;
    };
    for (CControl* control :
         {static_cast<CControl*>(knob->newCopy()),
          static_cast<CControl*>(new CMovieBitmap(kPlace, &w, 1, w.strip)),
          static_cast<CControl*>(new CHorizontalSwitch(kPlace, &w, 1, 5, 60, 5, w.strip)),
          static_cast<CControl*>(new CVerticalSwitch(kPlace, &w, 1, 5, 60, 5, w.strip))}) {
        w.show(control);
        for (const Row& row :
             {Row{0.0F, 0, 0}, {0.12F, 0, 0}, {0.13F, 0, 1}, {0.74F, 2, 3}, {1.0F, 4, 4}}) {
            control->setValue(row.value);
            EXPECT_EQ(w.picture(), control->isTypeOf("CAnimKnob") ? row.ofKnob : row.ofOthers);
        }
    }
}

TEST(Knob, FollowsACircleOrALineAndFinerWithShift) {
    struct Row {
        const char* story;
        int32_t mode, buttons;
        CPoint from, to;
        double turns; // of the whole range
    };
    for (const Row& row :
         {Row{"a quarter of a turn", kCircularMode, 0, {50, 20}, {80, 40}, 90.0 / 270},
          Row{"finer", kRelativCircularMode, kShift, {50, 20}, {80, 40}, 60.0 / 270},
          Row{"up", kLinearMode, 0, {50, 40}, {50, -10}, 0.25},
          Row{"to the right, finer", kLinearMode, kShift, {50, 40}, {80, 40}, 0.1}}) {
        SCOPED_TRACE(row.story);
        StripWindow w(5);
        w.knobMode = row.mode;
        auto* knob = w.show(new CAnimKnob(kPlace, nullptr, 1, 5, 60, w.strip));
        knob->setValue(0.5F);
        w.window().mouseDown(row.from.x, row.from.y, kLButton | row.buttons);
        w.window().mouseMove(row.to.x, row.to.y, kLButton | row.buttons);
        EXPECT_NEAR(knob->getValue(), 0.5 + row.turns, 1e-5);
        EXPECT_EQ(w.log.take(), "host begins 1");
        w.window().mouseMove(row.to.x, row.to.y, kLButton | (row.buttons ^ kShift));
        EXPECT_NEAR(knob->getValue(), 0.5 + row.turns, 1e-5) << "no jump when Shift changes";
        w.window().mouseUp(row.to.x, row.to.y);
        EXPECT_EQ(w.log.take(), "host ends 1");
    }
}

TEST(Knob, ADragAcrossTheGapBelowStaysAtItsEnd) {
    StripWindow w(5);
    auto* knob = w.show(new CAnimKnob(kPlace, &w, 1, 5, 60, w.strip));
    w.window().mouseDown(79, 45, kLButton);
    for (const CPoint& where : {CPoint(60, 70), CPoint(40, 70), CPoint(30, 55)}) {
        w.window().mouseMove(where.x, where.y, kLButton);
        EXPECT_GT(knob->getValue(), 0.99F);
    }
    w.window().mouseUp(30, 55);
}

TEST(Knob, WheelAndKeysAreEditsOfTheirOwn) {
    StripWindow w(5);
    auto* knob = w.show(new CAnimKnob(kPlace, &w, 1, 5, 60, w.strip));
    w.theFrame().setFocusView(knob);
    knob->setWheelInc(0.25F);
    w.window().wheel(50, 40, 1.0F);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.25F);
    EXPECT_EQ(w.log.take(), kOneEdit);
    w.press(VKEY_RIGHT);
    w.press(VKEY_DOWN, MODIFIER_SHIFT);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.475F);
    knob->setValue(1.0F);
    w.window().turn();
    w.log.take();
    w.window().wheel(50, 40, 1.0F);
    EXPECT_EQ(w.log.take(), "") << "at its end already";
}

TEST(Switch, SelectsThePositionUnderTheMouseAndByArrows) {
    StripWindow w(3);
    auto* across = w.show(new CHorizontalSwitch(kPlace, &w, 1, 3, 60, 3, w.strip));
    for (const auto& [x, value] : {std::pair{21, 0.0F}, {39, 0.0F}, {41, 0.5F}, {79, 1.0F}}) {
        w.click(x, 40);
        EXPECT_FLOAT_EQ(across->getValue(), value) << x;
    }
    w.log.take();
    w.window().mouseDown(25, 40, kLButton);
    w.window().mouseMove(200, 40, kLButton);
    EXPECT_FLOAT_EQ(across->getValue(), 1.0F) << "beyond its end";
    w.window().mouseUp(200, 40);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, host ends 1, end");

    w.press(VKEY_LEFT);
    EXPECT_FLOAT_EQ(across->getValue(), 0.5F);
    EXPECT_EQ(w.log.take(), kOneEdit);
    EXPECT_FALSE(w.window().keyDown(VKEY_UP)) << "the other direction's";
    w.window().turn();
    across->setValue(1.0F); // by the host, not drawn yet
    w.click(50, 40);
    EXPECT_EQ(w.log.take(), kOneEdit) << "told, although the screen still shows it";
    across->setListener(nullptr); // takes clicks with a modifier, as it does with Alt
    w.click(30, 40, kLButton | kControl);
    EXPECT_FLOAT_EQ(across->getValue(), 0.0F) << "its default";

    auto* down = w.show(new CVerticalSwitch(kPlace, &w, 1, 3, 60, 3, w.strip));
    w.click(50, 45);
    EXPECT_FLOAT_EQ(down->getValue(), 0.5F);
    EXPECT_TRUE(w.window().keyDown(VKEY_DOWN));
    EXPECT_FLOAT_EQ(down->getValue(), 1.0F);
    EXPECT_FALSE(w.window().keyDown(VKEY_DOWN));
}

TEST(Buttons, ToggleAtThePressOrSendOnAndOffWhenLetGoOverThemselves) {
    StripWindow w(2);
    auto* toggle = w.show(new COnOffButton(kPlace, &w, 1, w.strip));
    EXPECT_EQ(w.window().mouseDown(50, 40), kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_EQ(w.picture(), 1);
    EXPECT_EQ(w.log.take(), kOneEdit);
    w.press(VKEY_RETURN);
    w.click(50, 40, kMButton);
    EXPECT_FLOAT_EQ(toggle->getValue(), 0.0F);

    auto* kick = w.show(new CKickButton(kPlace, &w, 1, 60, w.strip));
    std::string values;
    w.onValue = [&] { values += kick->getValue() > 0 ? '1' : '0'; };
    w.window().mouseDown(50, 40, kLButton);
    EXPECT_EQ(w.picture(), 1);
    w.window().mouseMove(190, 40, kLButton);
    EXPECT_EQ(w.picture(), 0);
    w.window().mouseUp(190, 40);
    EXPECT_EQ(std::exchange(values, {}), "0") << "let go beside it";
    w.click(50, 40);
    EXPECT_EQ(std::exchange(values, {}), "10");
    w.log.take();
    w.press(VKEY_RETURN);
    w.press(VKEY_RETURN); // repeats
    w.window().keyUp(VKEY_RETURN);
    EXPECT_EQ(values, "10");
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, host ends 1, end");
    w.press(VKEY_RETURN);
    w.theFrame().setFocusView(toggle);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, host ends 1, end") << "taken back";
    w.theFrame().setFocusView(kick);
    values.clear();
    w.press(VKEY_RETURN);
    w.window().keyUp(VKEY_RETURN, MODIFIER_SHIFT);
    EXPECT_EQ(values, "10") << "the next one counts";
}

TEST(RockerSwitch, ReturnsToTheMiddle) {
    StripWindow w(3);
    auto* rocker = w.show(new CRockerSwitch(kPlace, &w, 1, 60, w.strip));
    const auto waitAndTake = [&] {
        w.clock.advance(250);
        w.window().turn();
        return w.log.take();
    };
    EXPECT_EQ(w.picture(), 1);
    w.window().mouseDown(25, 40, kLButton);
    EXPECT_EQ(w.picture(), 0);
    w.window().mouseMove(50, 40, kLButton); // the centre line is the second half's
    EXPECT_FLOAT_EQ(rocker->getValue(), 1.0F);
    w.window().mouseUp(50, 40);
    EXPECT_FLOAT_EQ(rocker->getValue(), 0.0F);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, value, host ends 1, end");

    w.window().wheel(50, 40, 1.0F);
    w.window().wheel(50, 40, 1.0F); // still at its side
    EXPECT_FLOAT_EQ(rocker->getValue(), 1.0F);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value");
    EXPECT_EQ(waitAndTake(), "value, host ends 1, end");
    w.window().wheel(50, 40, -1.0F);
    rocker->setValue(0.0F); // someone else put it back
    w.log.take();
    EXPECT_EQ(waitAndTake(), "host ends 1, end") << "nothing to tell";
    w.theFrame().setFocusView(rocker);
    w.press(VKEY_LEFT);
    w.press(VKEY_RIGHT);
    w.press(VKEY_RIGHT); // repeats
    EXPECT_FALSE(w.window().keyUp(VKEY_LEFT)) << "the other one holds it";
    w.window().keyUp(VKEY_RIGHT, MODIFIER_SHIFT);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, value, host ends 1, end");
    w.press(VKEY_LEFT);
    w.theFrame().setFocusView(nullptr);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, host ends 1, end");
    w.window().wheel(50, 40, 1.0F);
    w.onValue = [&] { w.theFrame().removeView(rocker); }; // while it returns
    waitAndTake();
    EXPECT_EQ(w.theFrame().getNbViews(), 0);
}

TEST(TextLabel, IsRedrawnWhenItsLookChanges) {
    const int32_t fontReferences = kNormalFont->getNbReference();
    auto* label = new CTextLabel(kPlace, "one");
    const std::pair<bool, std::function<void()>> changes[] = {
        {true, [&] { label->setFontColor(kRedCColor); }},
        {false, [&] { label->setFontColor(kRedCColor); }},
        {true, [&] { label->setFont(kNormalFont); }},
        {true, [&] { label->setValueToStringProc(nullptr, label); }},
        {false, [&] { label->setText("one"); }},
        {true, [&] { label->setText(label->getText() + 1); }}, // a part of its own
    };
    for (const auto& [isSeen, change] : changes) {
        label->setDirty(false);
        change();
        EXPECT_EQ(label->isDirty(), isSeen);
    }
    EXPECT_STREQ(label->getText(), "ne");
    label->forget();
    EXPECT_EQ(kNormalFont->getNbReference(), fontReferences);
}

TEST(SplashScreen, OpensOverEverythingAndClosesAtTheNextPress) {
    StripWindow w(1);
    w.add("below", CRect(150, 10, 160, 20));
    auto* splash = w.show(new CSplashScreen(kPlace, &w, 1, w.strip, CRect(0, 0, 200, 100)));
    EXPECT_FALSE(splash->hitTest(CPoint(50, 40), kRButton));
    w.click(50, 40);
    EXPECT_FLOAT_EQ(splash->getValue(), 1.0F);
    ASSERT_NE(w.theFrame().getModalView(), nullptr);
    w.log.take();
    w.click(155, 15);
    EXPECT_EQ(w.theFrame().getModalView(), nullptr);
    EXPECT_FLOAT_EQ(splash->getValue(), 0.0F);
    EXPECT_EQ(w.log.take(), "value, below enter");

    w.click(50, 40);
    w.theFrame().removeView(splash);
    EXPECT_EQ(w.theFrame().getModalView(), nullptr) << "goes with its owner";

    w.show(new CSplashScreen(kPlace, &w, 1, w.strip, CRect(0, 0, 200, 100)));
    w.click(50, 40);
    w.log.take();
    w.close(); // with the picture open
    EXPECT_EQ(w.log.take(), "below gone") << "nothing is told in the middle of the close";
}

} // namespace
} // namespace VSTGUI
