#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"

namespace VSTGUI {
namespace {

class FrameMouse : public testing::Test {
protected:
    ToolkitWindow w;
};

TEST(FramePress, IsFollowedByMovesAndReleaseWhereItWasHandled) {
    struct Row {
        CMouseEventResult ofPress, ofMove;
        const char* expected;
    };
    for (const Row& row :
         {Row{kMouseEventHandled, kMouseEventHandled, "a down, a move, a up, b enter"},
          Row{kMouseDownEventHandledButDontNeedMovedOrUpEvents, kMouseEventHandled,
              "a down, b enter, b move"},
          Row{kMouseEventNotHandled, kMouseEventHandled, "a down, b enter, b move"},
          Row{kMouseEventHandled, kMouseEventNotHandled, "a down, a move, b enter"}}) {
        ToolkitWindow w;
        ScriptedControl* const a = w.add("a", CRect(0, 0, 50, 50));
        w.add("b", CRect(50, 0, 100, 50));
        a->result = row.ofPress;
        w.window().mouseDown(10, 10);
        a->result = row.ofMove;
        w.window().mouseMove(60, 10, kLButton);
        w.window().mouseUp(60, 10);
        EXPECT_EQ(w.log.take(), row.expected);
    }
}

TEST_F(FrameMouse, PressAndWheelFallThroughTransparentViewsAlone) {
    LoggingContainer* const box = w.addContainer("box", CRect(0, 0, 50, 50));
    w.add("bottom", CRect(0, 0, 50, 50), box);
    ScriptedControl* const top = w.add("top", CRect(0, 0, 50, 50), box);
    ScriptedControl* const off = w.add("off", CRect(0, 0, 50, 50), box);
    off->setMouseEnabled(false);
    top->result = off->result = kMouseEventNotHandled;
    w.window().mouseDown(10, 10);
    EXPECT_FALSE(w.window().wheel(10, 10, 1)) << "it reaches a disabled view";
    EXPECT_EQ(w.log.take(), "top down, off wheel 1");
    top->setTransparency(true);
    off->setTransparency(true);
    w.window().mouseDown(10, 10);
    EXPECT_FALSE(w.window().wheel(10, 10, 1, kLButton)) << "not during a drag";
    w.window().mouseUp(90, 10);
    EXPECT_TRUE(w.window().wheel(10, 10, 1, 0, kMouseWheelAxisX)) << "which counts the other way";
    EXPECT_EQ(w.log.take(),
              "top down, bottom down, bottom up, off wheel -1, top wheel -1, bottom wheel -1");
    EXPECT_EQ(w.theFrame().getViewAt(CPoint(10, 10), true), off) << "found all the same";
}

TEST_F(FrameMouse, ViewsAreEnteredFromTheOutsideAndLeftFromTheInside) {
    LoggingContainer* const box = w.addContainer("box", CRect(20, 20, 80, 80));
    ScriptedControl* const in = w.add("in", CRect(0, 0, 10, 10), box);
    CView* const other = w.add("other", CRect(80, 0, 150, 50));
    in->result = kMouseEventNotHandled;

    w.window().mouseMove(25, 26, kLButton | kShift);
    EXPECT_EQ(w.log.take(), "box enter, in enter, in move");
    EXPECT_EQ(in->lastWhere, CPoint(5, 6)) << "the space of the container";
    EXPECT_EQ(in->lastButtons(), kShift) << "without a press of its own, no buttons";
    w.window().mouseMove(70, 70);
    EXPECT_EQ(w.log.take(), "in exit");
    w.window().mouseMove(80, 30); // an edge belongs to one view only
    EXPECT_EQ(w.log.take(), "box exit, other enter, other move");
    EXPECT_EQ(w.theFrame().getViewAt(CPoint(79.5, 19)), nullptr);
    EXPECT_EQ(w.theFrame().getViewAt(CPoint(80, 19)), other);
    EXPECT_EQ(w.theFrame().getViewAt(CPoint(150, 19)), nullptr);
    w.window().mouseDown(110, 10);
    w.window().mouseExit(-5, 10, kLButton);
    w.window().mouseMove(-5, 10, kLButton);
    EXPECT_EQ(w.log.take(), "other down, other move") << "no exit during a drag";
    w.window().mouseUp(-5, 10);
    EXPECT_EQ(w.log.take(), "other up, other exit");
    w.window().mouseMove(110, 10);
    w.window().mouseExit(-5, 10);
    EXPECT_EQ(w.log.take(), "other enter, other move, other exit");
    w.window().mouseDown(110, 10, kLButton | kAlt);
    w.window().mouseDown(110, 10, kRButton);
    EXPECT_EQ(w.log.take(), "modifier click, modifier click, other down") << "the listener first";
}

// Membership changes while an event is delivered

TEST_F(FrameMouse, AViewTakenAwayInItsDragGetsOneReleaseAndNoneInItsPress) {
    LoggingContainer* const box = w.addContainer("box", CRect(20, 20, 80, 80));
    ScriptedControl* const a = w.add("a", CRect(0, 0, 50, 50), box);
    w.window().mouseDown(30, 30);
    w.window().mouseMove(90, 31, kLButton | kShift);
    w.log.take();
    w.theFrame().removeView(box, false);
    EXPECT_EQ(w.log.take(), "a up");
    EXPECT_EQ(a->lastWhere, CPoint(70, 11));
    EXPECT_EQ(a->lastButtons(), kShift);
    w.window().mouseUp(90, 31);
    EXPECT_TRUE(w.theFrame().addView(box));
    EXPECT_FALSE(w.theFrame().addView(box));
    a->script["down"] = [&] { box->removeView(a); };
    w.click(30, 30);
    EXPECT_EQ(w.log.take(), "a down, a gone, box enter");
}

/// Run under the address sanitizer this is about memory; here it is about getting to the end.
TEST(FrameMembership, AnyCallbackMayChangeTheTree) {
    for (const char* event : {"down", "move", "up", "enter", "exit", "wheel 1", "key", "value",
                              "takes focus", "loses focus"}) {
        for (const char* action : {"self", "sibling", "parent", "everything", "close", "modal"}) {
            SCOPED_TRACE(std::string(action) + " in " + event);
            ToolkitWindow w;
            LoggingContainer* const box = w.addContainer("box", CRect(0, 0, 100, 100));
            ScriptedControl* const a = w.add("a", CRect(0, 0, 50, 50), box);
            ScriptedControl* const b = w.add("b", CRect(50, 0, 100, 50), box);
            a->setWantsFocus(true);
            b->setWantsFocus(true);
            bool done = false;
            const auto act = [&] {
                const std::string what = std::exchange(done, true) ? "" : action;
                if (what == "self")
                    box->removeView(a);
                else if (what == "sibling")
                    box->removeView(b);
                else if (what == "parent")
                    w.theFrame().removeView(box);
                else if (what == "everything")
                    w.theFrame().removeAll();
                else if (what == "close")
                    w.close();
                else if (what == "modal")
                    w.theFrame().setModalView(new ScriptedControl("m", CRect(0, 0, 9, 9), w.log));
            };
            a->script["up"] = [&] { a->checkDefaultValue(kLButton | kControl); };
            if (std::string(event) == "value")
                w.onValue = act;
            a->script[event] = act;
            using Window = OffscreenFrame;
            for (void (*step)(Window&) : {
                     +[](Window& window) { window.mouseMove(10, 10); },
                     +[](Window& window) { window.mouseDown(10, 10); },
                     +[](Window& window) { window.mouseMove(20, 10, kLButton); },
                     +[](Window& window) { window.mouseUp(20, 10); },
                     +[](Window& window) { window.wheel(20, 10, 1); },
                     +[](Window& window) { window.keyDown(VKEY_UP); },
                     +[](Window& window) { window.mouseDown(60, 10); },
                     +[](Window& window) { window.mouseUp(60, 10); },
                     +[](Window& window) { window.mouseMove(150, 80); },
                     +[](Window& window) { window.turn(); },
                 })
                if (w.isOpen())
                    step(w.window());
            CView* const modal = w.isOpen() ? w.theFrame().getModalView() : nullptr;
            if (modal) {
                w.theFrame().setModalView(nullptr);
                modal->forget();
            }
        }
    }
}

// The modal view

TEST_F(FrameMouse, IsAModalViewsAlone) {
    w.add("a", CRect(0, 0, 50, 50));
    w.window().mouseMove(10, 10);
    auto* const modal = new ScriptedControl("m", CRect(100, 0, 150, 50), w.log);
    ASSERT_TRUE(w.theFrame().setModalView(modal));
    EXPECT_FALSE(w.theFrame().setModalView(modal));
    w.click(10, 10);
    EXPECT_EQ(w.theFrame().getViewAt(CPoint(10, 10)), nullptr);
    w.window().mouseDown(110, 10);
    w.window().mouseMove(10, 10, kLButton);
    w.window().mouseUp(10, 10);
    EXPECT_EQ(w.log.take(), "a enter, a move, a exit, m down, m move, m up");
    w.theFrame().setModalView(nullptr);
    EXPECT_EQ(modal->getNbReference(), 1) << "its creator's again";

    modal->script["down"] = [&] { w.theFrame().setModalView(nullptr); };
    w.theFrame().setModalView(modal);
    w.click(110, 10);
    EXPECT_EQ(w.log.take(), "m down");
    EXPECT_EQ(w.theFrame().getModalView(), nullptr) << "closed itself in its press";
    w.theFrame().setModalView(modal);
    w.close();
    EXPECT_EQ(modal->getNbReference(), 1) << "not the frame's when that closes, either";
    modal->forget();
}

} // namespace
} // namespace VSTGUI
