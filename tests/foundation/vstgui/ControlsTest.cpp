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

/// A strip of pictures 60 pixels wide; picture i has the grey level 10 * i.
CBitmap* makeStrip(CFrame& frame, int pictures, CCoord height) {
    COffscreenContext* context = COffscreenContext::create(&frame, 60, height * pictures);
    context->beginDraw();
    for (int i = 0; i < pictures; ++i) {
        const auto grey = static_cast<uint8_t>(10 * i);
        context->setFillColor(CColor(grey, grey, grey, 255));
        context->drawRect(CRect(0, height * i, 60, height * (i + 1)), kDrawFilled);
    }
    context->endDraw();
    CBitmap* strip = context->getBitmap();
    strip->remember();
    context->forget();
    return strip;
}

/// A window with one control on a strip.
class StripWindow : public ToolkitWindow {
public:
    explicit StripWindow(int pictures) : strip(makeStrip(theFrame(), pictures, 60)) {}
    ~StripWindow() override { strip->forget(); }

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

    void click(CCoord x, CCoord y, int32_t buttons = kLButton) {
        window().mouseDown(x, y, buttons);
        window().mouseUp(x, y);
    }

    CBitmap* strip;
};

TEST(Pictures, EachControlRoundsItsOwnWay) {
    StripWindow w(5);
    auto* knob = w.show(new CAnimKnob(kPlace, &w, 1, /*pictures*/ 99, /*height*/ 60, w.strip));
    EXPECT_EQ(knob->getNumSubPixmaps(), 5) << "counted from the strip";
    struct Row {
        float value;
        int ofKnob, ofSwitch;
    };
    const Row rows[] = {{0.0F, 0, 0}, {0.12F, 0, 0}, {0.13F, 0, 1}, {0.74F, 2, 3}, {1.0F, 4, 4}};
    for (const Row& row : rows) {
        knob->setValue(row.value);
        EXPECT_EQ(w.picture(), row.ofKnob) << row.value;
    }
    CControl* others[] = {new CMovieBitmap(kPlace, &w, 1, w.strip),
                          new CHorizontalSwitch(kPlace, &w, 1, 5, 60, 5, w.strip),
                          new CVerticalSwitch(kPlace, &w, 1, 5, 60, 5, w.strip)};
    for (CControl* control : others) {
        w.show(control);
        for (const Row& row : rows) {
            control->setValue(row.value);
            EXPECT_EQ(w.picture(), row.ofSwitch) << row.value;
        }
    }
}

TEST(Pictures, ABitmapOutlivesItsMakerInTheControl) {
    ToolkitWindow w;
    CBitmap* strip = makeStrip(w.theFrame(), 2, 60);
    auto* knob = new CKnob(kPlace, &w, 1, strip, strip);
    strip->forget();
    w.theFrame().addView(knob);
    auto* copy = static_cast<CKnob*>(knob->newCopy());
    w.theFrame().removeView(knob);
    w.theFrame().addView(copy);
    w.window().turn();
    EXPECT_EQ(strip->getNbReference(), 2) << "background and handle of the copy";
}

TEST(Knob, ALinearDragOf200PixelsIsTheWholeRangeAndShiftMakesItFiner) {
    StripWindow w(5);
    auto* knob = w.show(new CAnimKnob(kPlace, &w, 1, 5, 60, w.strip));
    knob->setValue(0.5F);
    w.window().mouseDown(50, 40, kLButton | kAlt); // circles are the editor's mode: Alt for a line
    EXPECT_EQ(w.log.take(), "modifier click") << "the listener takes it";
    w.window().mouseUp(50, 40);

    w.window().mouseDown(50, 20, kLButton);
    EXPECT_EQ(w.log.take(), "begin, host begins 1");
    w.window().mouseMove(80, 40, kLButton); // from the top to the right, a quarter of a turn
    EXPECT_NEAR(knob->getValue(), 0.5 + 90.0 / 270.0, 1e-5);
    w.window().mouseMove(80, 40, kLButton | kShift);
    EXPECT_NEAR(knob->getValue(), 0.5 + 90.0 / 270.0, 1e-5) << "no jump";
    w.window().mouseMove(50, 20, kLButton | kShift);
    EXPECT_NEAR(knob->getValue(), 0.5 + 30.0 / 270.0, 1e-5) << "1.5 times as fine";
    w.window().mouseUp(50, 20);
    EXPECT_EQ(w.log.take(), "value, value, host ends 1, end");
}

TEST(Knob, ADragAcrossTheGapBelowStaysAtItsEnd) {
    StripWindow w(5);
    auto* knob = w.show(new CAnimKnob(kPlace, &w, 1, 5, 60, w.strip));
    w.window().mouseDown(79, 45, kLButton);
    w.window().mouseMove(60, 70, kLButton);
    EXPECT_FLOAT_EQ(knob->getValue(), 1.0F);
    w.window().mouseMove(40, 70, kLButton);
    w.window().mouseMove(30, 55, kLButton);
    EXPECT_FLOAT_EQ(knob->getValue(), 1.0F);
    w.window().mouseUp(30, 55);
}

TEST(Knob, WheelAndKeysAreEditsOfTheirOwn) {
    StripWindow w(5);
    auto* knob = w.show(new CAnimKnob(kPlace, &w, 1, 5, 60, w.strip));
    w.theFrame().setFocusView(knob);
    knob->setWheelInc(0.25F);
    const std::string edit = "begin, host begins 1, value, host ends 1, end";
    w.window().wheel(50, 40, 1.0F);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.25F);
    EXPECT_EQ(w.log.take(), edit);
    w.window().keyDown(VKEY_RIGHT);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.5F);
    w.window().keyDown(VKEY_DOWN, MODIFIER_SHIFT);
    EXPECT_FLOAT_EQ(knob->getValue(), 0.475F);
    EXPECT_EQ(w.log.take(), edit + ", " + edit);
    knob->setValue(1.0F);
    w.window().turn();
    w.window().wheel(50, 40, 1.0F);
    EXPECT_EQ(w.log.take(), "") << "at its end already";
}

TEST(Switch, SelectsThePositionUnderTheMouseAndByArrows) {
    StripWindow w(3);
    auto* across = w.show(new CHorizontalSwitch(kPlace, &w, 1, 3, 60, 3, w.strip));
    struct Row {
        CCoord x;
        float value;
    };
    for (const Row row : {Row{21, 0.0F}, {39, 0.0F}, {41, 0.5F}, {79, 1.0F}}) {
        w.click(row.x, 40);
        EXPECT_FLOAT_EQ(across->getValue(), row.value) << row.x;
    }
    w.log.take();
    w.window().mouseDown(25, 40, kLButton);
    w.window().mouseMove(200, 40, kLButton);
    EXPECT_FLOAT_EQ(across->getValue(), 1.0F) << "beyond its end";
    w.window().mouseUp(200, 40);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, host ends 1, end");

    w.window().keyDown(VKEY_LEFT);
    EXPECT_FLOAT_EQ(across->getValue(), 0.5F);
    EXPECT_FALSE(w.window().keyDown(VKEY_UP)) << "the other direction's";
    across->setListener(nullptr); // takes clicks with a modifier, as it does with Alt
    w.click(30, 40, kLButton | kControl);
    EXPECT_FLOAT_EQ(across->getValue(), 0.0F) << "its default";

    auto* down = w.show(new CVerticalSwitch(kPlace, &w, 1, 3, 60, 3, w.strip));
    w.click(50, 45);
    EXPECT_FLOAT_EQ(down->getValue(), 0.5F);
    w.window().keyDown(VKEY_DOWN);
    EXPECT_FLOAT_EQ(down->getValue(), 1.0F);
    EXPECT_FALSE(w.window().keyDown(VKEY_DOWN));
}

TEST(Switch, TellsAChangeBackToWhatTheScreenStillShows) {
    StripWindow w(3);
    auto* across = w.show(new CHorizontalSwitch(kPlace, &w, 1, 3, 60, 3, w.strip));
    w.click(50, 40);
    w.log.take();
    across->setValue(1.0F); // by the host, not drawn yet
    w.window().keyDown(VKEY_LEFT);
    EXPECT_FLOAT_EQ(across->getValue(), 0.5F);
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, host ends 1, end");
}

TEST(OnOffButton, TogglesAtThePressAndByReturn) {
    ToolkitWindow w;
    CBitmap* strip = makeStrip(w.theFrame(), 2, 60);
    auto* button = new COnOffButton(kPlace, &w, 1, strip);
    strip->forget();
    w.theFrame().addView(button);
    const std::string edit = "begin, host begins 1, value, host ends 1, end";
    EXPECT_EQ(w.window().mouseDown(50, 40, kLButton),
              kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_FLOAT_EQ(button->getValue(), 1.0F);
    EXPECT_EQ(w.log.take(), edit);
    w.window().keyDown(VKEY_RETURN);
    EXPECT_FLOAT_EQ(button->getValue(), 0.0F);
    EXPECT_EQ(w.log.take(), edit);
    w.window().mouseDown(50, 40, kMButton);
    EXPECT_FLOAT_EQ(button->getValue(), 0.0F);
}

TEST(KickButton, SendsOnAndOffWhenLetGoOverItself) {
    StripWindow w(2);
    auto* button = w.show(new CKickButton(kPlace, &w, 1, 60, w.strip));
    std::string values;
    w.onValue = [&] { values += button->getValue() > 0 ? '1' : '0'; };
    w.window().mouseDown(50, 40, kLButton);
    EXPECT_EQ(w.picture(), 1);
    EXPECT_EQ(values, "");
    w.window().mouseUp(50, 40);
    EXPECT_EQ(std::exchange(values, {}), "10");
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, host ends 1, end");

    w.window().mouseDown(50, 40, kLButton);
    w.window().mouseMove(190, 40, kLButton);
    EXPECT_EQ(w.picture(), 0);
    w.window().mouseUp(190, 40);
    EXPECT_EQ(std::exchange(values, {}), "0") << "let go beside it";

    w.log.take();
    w.window().keyDown(VKEY_RETURN);
    w.window().keyDown(VKEY_RETURN); // repeats
    w.window().keyUp(VKEY_RETURN);
    EXPECT_EQ(values, "10");
    EXPECT_EQ(w.log.take(), "begin, host begins 1, value, value, host ends 1, end");
}

TEST(RockerSwitch, ReturnsToTheMiddle) {
    StripWindow w(3);
    auto* rocker = w.show(new CRockerSwitch(kPlace, &w, 1, 60, w.strip));
    EXPECT_EQ(w.picture(), 1);
    w.window().mouseDown(25, 40, kLButton);
    EXPECT_FLOAT_EQ(rocker->getValue(), -1.0F);
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
    w.clock.advance(250);
    w.window().turn();
    EXPECT_EQ(w.log.take(), "value, host ends 1, end");
    w.window().turn();
    w.window().wheel(50, 40, -1.0F);
    rocker->setValue(0.0F); // someone else put it back
    w.log.take();
    w.clock.advance(250);
    w.window().turn();
    EXPECT_EQ(w.log.take(), "host ends 1, end") << "nothing to tell";
}

TEST(RockerSwitch, MayBeTakenAwayByItsListenerWhileItReturns) {
    StripWindow w(3);
    auto* rocker = w.show(new CRockerSwitch(kPlace, &w, 1, 60, w.strip));
    w.window().wheel(50, 40, 1.0F);
    w.onValue = [&] { w.theFrame().removeView(rocker); };
    w.clock.advance(250);
    w.window().turn();
    EXPECT_EQ(w.theFrame().getNbViews(), 0);
}

/// The steps of a display's drawing, as text.
class ShownText : public CParamDisplay {
public:
    ShownText() : CParamDisplay(kPlace) {}
    std::string seen;
    CLASS_METHODS_NOCOPY(ShownText, CParamDisplay)

protected:
    void drawBack(CDrawContext* context, CBitmap* newBack) override {
        seen += "back ";
        CParamDisplay::drawBack(context, newBack);
    }
    void drawText(CDrawContext* context, UTF8StringPtr text) override {
        seen += text;
        CParamDisplay::drawText(context, text);
    }
};

TEST(ParamDisplay, WritesTheValueByItsConverterElseWithTwoDecimals) {
    ToolkitWindow w;
    auto* display = new ShownText;
    EXPECT_EQ(display->getTag(), -1);
    w.theFrame().addView(display);
    w.window().turn();
    EXPECT_EQ(std::exchange(display->seen, {}), "back 0.00");
    display->setValueToStringProc(
        [](float value, char* text, void* unit) {
            std::snprintf(text, 256, "%g %s", static_cast<double>(value), static_cast<char*>(unit));
            return value < 0.5F;
        },
        const_cast<char*>("dB"));
    display->setValue(0.25F);
    w.window().turn();
    EXPECT_EQ(std::exchange(display->seen, {}), "back 0.25 dB");
    display->setValue(0.75F);
    w.window().turn();
    EXPECT_EQ(std::exchange(display->seen, {}), "back 0.75") << "not converted";
    display->setStyle(kNoDrawStyle);
    w.window().turn();
    EXPECT_EQ(display->seen, "");
    EXPECT_FALSE(display->isDirty()) << "the redraw was asked for";
    display->setDirty();
    display->draw(nullptr);
    EXPECT_TRUE(display->isDirty()) << "not by drawing: there was none";
}

TEST(ParamDisplay, IsRedrawnWhenItsLookChanges) {
    auto* display = new ShownText;
    const auto isRedrawnBy = [&](auto change) {
        display->setDirty(false);
        change();
        return display->isDirty();
    };
    EXPECT_TRUE(isRedrawnBy([&] { display->setFontColor(kRedCColor); }));
    EXPECT_FALSE(isRedrawnBy([&] { display->setFontColor(kRedCColor); }));
    EXPECT_TRUE(isRedrawnBy([&] { display->setFont(display->getFont()); }));
    EXPECT_TRUE(isRedrawnBy([&] { display->setAntialias(false); }));
    EXPECT_TRUE(isRedrawnBy([&] { display->setValueToStringProc(nullptr, display); }));
    display->forget();
}

TEST(ParamDisplay, PaintsBackFrameAndText) {
    ToolkitWindow w;
    auto* label = new CTextLabel(kPlace, "HHHHHHHH");
    label->setBackColor(CColor(0, 0, 200, 255));
    label->setFrameColor(CColor(0, 200, 0, 255));
    w.theFrame().addView(label);
    const auto at = [&](int x, int y) {
        w.window().turn();
        return w.window().surface()->pixelAt(x, y);
    };
    EXPECT_EQ(at(20, 10), 0xFF00C800U);
    EXPECT_EQ(at(79, 69), 0xFF00C800U);
    EXPECT_EQ(at(22, 12), 0xFF0000C8U);
    const auto whitePixels = [&] { // less than half of the back is left
        int count = 0;
        for (int y = 20; y < 60; ++y)
            for (int x = 21; x < 79; ++x)
                count += (at(x, y) & 0xFF0000) > 0x800000;
        return count;
    };
    EXPECT_GT(whitePixels(), 20);
    label->setStyle(kNoFrame | kNoTextStyle);
    EXPECT_EQ(whitePixels(), 0);
    EXPECT_EQ(at(20, 10), 0xFF0000C8U);
}

TEST(TextLabel, IsDirtyOnlyWhenItsTextChanges) {
    ToolkitWindow w;
    auto* label = new CTextLabel(kPlace, "one");
    w.theFrame().addView(label);
    w.window().turn();
    label->setText("one");
    EXPECT_FALSE(label->isDirty());
    label->setText(label->getText() + 1); // a part of its own
    EXPECT_STREQ(label->getText(), "ne");
    EXPECT_TRUE(label->isDirty());
    label->setText(nullptr);
    EXPECT_STREQ(label->getText(), "");
    label->setText("a longer text");
    EXPECT_TRUE(label->sizeToFit());
    EXPECT_NEAR(label->getWidth(), 70, 15);
}

/// Tells its listener whenever it ends, as about boxes do.
class TellingSplash : public CSplashScreen {
public:
    using CSplashScreen::CSplashScreen;
    void unSplash() override {
        CSplashScreen::unSplash();
        CControl::valueChanged();
    }
    CLASS_METHODS(TellingSplash, CSplashScreen)
};

TEST(SplashScreen, OpensOverEverythingAndClosesAtTheNextPress) {
    StripWindow w(1);
    ScriptedControl* below = w.add("below", CRect(150, 10, 160, 20));
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

    auto* last = w.show(new TellingSplash(kPlace, &w, 1, w.strip, CRect(0, 0, 200, 100)));
    w.click(50, 40);
    EXPECT_FLOAT_EQ(last->getValue(), 1.0F);
    w.log.take();
    w.close(); // with the picture open: nothing is left, says the leak checker
    EXPECT_EQ(w.log.take().find("value"), std::string::npos) << "told in the middle of the close";
    (void)below;
}

} // namespace
} // namespace VSTGUI
