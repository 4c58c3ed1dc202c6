#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <cmath>
#include <cstdlib>

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/controls/cbuttons.h"
#include "vstgui/lib/controls/cknob.h"
#include "vstgui/lib/controls/cmoviebitmap.h"
#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/controls/csplashscreen.h"
#include "vstgui/lib/controls/cswitch.h"
#include "vstgui/lib/controls/ctextedit.h"

namespace VSTGUI {
namespace {

constexpr CCoord kSide = 50;

/// A window with one of each control, in rows of five places.
class EveryControl : public EditorInHost {
public:
    EveryControl() {
        CFrame& frame = editor.theFrame();
        frame.setBackgroundColor(CColor(58, 60, 58, 255));
        CBitmap* const dials = strip(11, kSide);
        CBitmap* const lamps = strip(2, kSide);
        CBitmap* const thirds = strip(3, kSide);
        CBitmap* const dot = strip(1, 8);
        show(knob = new CKnob(place(0), &editor, 1, strip(1, kSide), dot));
        show(animated = new CAnimKnob(place(1), &editor, 2, 11, kSide, dials));
        show(across = new CHorizontalSwitch(place(2), &editor, 3, 3, kSide, 3, thirds));
        show(upright = new CVerticalSwitch(place(3), &editor, 4, 3, kSide, 3, thirds));
        show(rocker = new CRockerSwitch(place(4), &editor, 5, kSide, thirds));
        show(onOff = new COnOffButton(place(5), &editor, 6, lamps));
        show(kick = new CKickButton(place(6), &editor, 7, kSide, lamps));
        auto* const movie = new CMovieBitmap(place(7), &editor, 8, dials);
        movie->setValue(0.7F);
        show(movie);
        auto* const display = new CParamDisplay(place(8));
        display->setValue(0.25F);
        show(display);
        show(new CTextLabel(place(9), "Label \u03A9"));
        show(name = new CTextEdit(place(10), &editor, 9, "name"));
        show(menu = new COptionMenu(place(11), &editor, 10, nullptr, nullptr, kPopupStyle));
        for (const char* const entry : {"first", "second", "third"})
            menu->addEntry(entry);
        show(new CSplashScreen(place(12), &editor, 11, strip(4, kSide), CRect(100, 60, 150, 260)));
        for (CBitmap* const bitmap : made_)
            bitmap->forget();
        settle();
    }

    /// A control's middle, moved by so many pixels.
    CPoint middle(int number, int dx = 0, int dy = 0) {
        return place(number).getCenter() + CPoint(dx, dy);
    }
    void click(int number, int dx = 0, int dy = 0) { drag(number, dx, dy, 0, 0); }
    void drag(int number, int dx, int dy, int byX, int byY) {
        const CPoint from = middle(number, dx, dy);
        host.moveTo(static_cast<int>(from.x), static_cast<int>(from.y));
        host.button(1, true);
        settle();
        if (byX != 0 || byY != 0) {
            host.moveTo(static_cast<int>(from.x) + byX, static_cast<int>(from.y) + byY);
            settle();
        }
        host.button(1, false);
        settle();
    }

    CKnob* knob;
    CAnimKnob* animated;
    CHorizontalSwitch* across;
    CVerticalSwitch* upright;
    CRockerSwitch* rocker;
    COnOffButton* onOff;
    CKickButton* kick;
    CTextEdit* name;
    COptionMenu* menu;

private:
    static CRect place(int number) {
        return {CPoint(20 + number % 5 * 75, 20 + number / 5 * 75), CPoint(kSide, kSide)};
    }
    void show(CView* view) { editor.theFrame().addView(view); }

    /// Pictures of a hand that turns, one below the other.
    CBitmap* strip(int pictures, CCoord side) {
        COffscreenContext* const context =
            COffscreenContext::create(&editor.theFrame(), side, side * pictures);
        context->beginDraw();
        context->setDrawMode(kAntiAliasing);
        for (int i = 0; i < pictures; ++i) {
            CRect area(CPoint(0, side * i), CPoint(side, side));
            const CPoint centre = area.getCenter();
            context->setFillColor(CColor(120, 130, 150, 255));
            context->drawRect(area.inset(1, 1), kDrawFilled);
            const double angle = 0.75 * M_PI + 1.5 * M_PI * i / std::max(1, pictures - 1);
            context->setFrameColor(kWhiteCColor);
            context->setLineWidth(3);
            context->moveTo(centre);
            context->lineTo(centre +
                            CPoint(side / 2.5 * std::cos(angle), side / 2.5 * std::sin(angle)));
        }
        context->endDraw();
        CBitmap* const bitmap = context->getBitmap();
        bitmap->remember();
        context->forget();
        made_.push_back(bitmap);
        return bitmap;
    }

    std::vector<CBitmap*> made_;
};

TEST(X11EveryControl, AnswersToTheMouse) {
    PEDL_NEEDS_DISPLAY();
    EveryControl w;
    w.editor.setKnobMode(kLinearMode);
    w.drag(0, 0, 0, 0, -60);
    EXPECT_GT(w.knob->getValue(), 0.05F) << "a knob dragged upwards";
    w.drag(1, 0, 0, 0, -60);
    EXPECT_GT(w.animated->getValue(), 0.05F);
    const float before = w.animated->getValue();
    w.host.moveTo(static_cast<int>(w.middle(1).x), static_cast<int>(w.middle(1).y));
    w.host.notch(4);
    w.settle();
    EXPECT_GT(w.animated->getValue(), before) << "the wheel over a knob";
    w.editor.setKnobMode(kCircularMode);
    w.click(2, 20, 0);
    EXPECT_FLOAT_EQ(w.across->getValue(), w.across->getMax()) << "its right end";
    w.click(3, 0, 20);
    EXPECT_FLOAT_EQ(w.upright->getValue(), w.upright->getMax()) << "its lower end";
    w.click(5);
    EXPECT_FLOAT_EQ(w.onOff->getValue(), 1.0F);
    w.editor.log.take();
    w.click(6);
    EXPECT_NE(w.editor.log.take().find("value 1"), std::string::npos) << "a kick";
    EXPECT_FLOAT_EQ(w.kick->getValue(), 0.0F);
    w.editor.log.take();
    w.click(4, 20, 0);
    EXPECT_NE(w.editor.log.take(), "") << "a rocker";

    w.click(11);
    ASSERT_TRUE(w.menu->isOpen());
    w.host.type(0xFF54); // Down
    w.host.type(0xFF0D); // Return
    w.settle();
    EXPECT_FLOAT_EQ(w.menu->getValue(), 1.0F);

    w.click(12);
    EXPECT_NE(w.editor.theFrame().getModalView(), nullptr) << "a splash";
    w.host.click(125, 100);
    w.settle();
    EXPECT_EQ(w.editor.theFrame().getModalView(), nullptr);

    w.click(10);
    w.host.type("typed");
    w.settle();
    w.host.moveTo(380, 280);
    w.settle();
    if (const char* const folder = std::getenv("PEDL_TEST_PICTURES")) {
        EXPECT_TRUE(w.host.savePicture(std::string(folder) + "/x11-controls.png",
                                       TestEditor::kWidth, TestEditor::kHeight));
    }
    w.host.type(0xFF0D);
    w.settle();
    EXPECT_STREQ(w.name->getText(), "typed");
}

} // namespace
} // namespace VSTGUI
