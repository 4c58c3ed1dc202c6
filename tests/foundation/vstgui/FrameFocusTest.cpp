#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"

namespace VSTGUI {
namespace {

/// Two controls that want the keyboard, the second inside a container.
class FrameFocus : public testing::Test {
protected:
    FrameFocus() {
        a->setWantsFocus(true);
        b->setWantsFocus(true);
    }
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(0, 0, 50, 50));
    LoggingContainer* const box = w.addContainer("box", CRect(50, 0, 150, 100));
    ScriptedControl* const b = w.add("b", CRect(0, 0, 50, 50), box);
};

TEST_F(FrameFocus, AKeyClimbsFromTheFocusViewUntilItIsUsed) {
    EXPECT_FALSE(w.window().keyDown(VKEY_UP)) << "no focus: the key is the host's";
    w.window().mouseDown(10, 10);
    w.window().mouseDown(60, 10);
    EXPECT_EQ(w.log.take(), "a takes focus, a down, a up, a loses focus, b takes focus, b down");
    EXPECT_FALSE(w.window().keyDown(VKEY_UP));
    b->keyResult = 1;
    EXPECT_TRUE(w.window().keyDown(VKEY_UP));
    b->setMouseEnabled(false);
    EXPECT_FALSE(w.window().keyDown(VKEY_UP));
    EXPECT_EQ(w.log.take(), "b key, box key, b key, box key");
}

TEST_F(FrameFocus, TabGoesRoundBothWays) {
    w.add("c", CRect(150, 0, 200, 50))->setWantsFocus(true);
    std::string order;
    for (const int32_t modifiers : {0, 0, 0, 0, MODIFIER_SHIFT + 0, MODIFIER_SHIFT + 0}) {
        EXPECT_TRUE(w.window().keyDown(VKEY_TAB, modifiers));
        order += static_cast<ScriptedControl*>(w.theFrame().getFocusView())->name;
    }
    EXPECT_EQ(order, "abcacb");
}

TEST_F(FrameFocus, AnInactiveWindowRemembersWhoHadTheKeyboard) {
    w.theFrame().setFocusView(b);
    w.window().activate(false);
    EXPECT_EQ(w.theFrame().getFocusView(), nullptr);
    w.window().activate(true);
    EXPECT_EQ(w.theFrame().getFocusView(), b);
    w.window().activate(false);
    w.theFrame().setFocusView(a); // a request from elsewhere in the meantime
    w.window().activate(true);
    EXPECT_EQ(w.log.take(), "b takes focus, b loses focus, b takes focus, b loses focus, "
                            "a takes focus");
    w.window().activate(false);
    w.theFrame().removeView(a);
    w.window().activate(true);
    EXPECT_EQ(w.theFrame().getFocusView(), b) << "the first that wants it";
}

TEST_F(FrameFocus, AViewThatGoesLetsTheKeyboardGoWhileStillInTheTree) {
    w.theFrame().setFocusView(a);
    a->script["loses focus"] = [&] { w.theFrame().setFocusView(a); }; // in the middle of the change
    w.theFrame().setFocusView(b);
    b->script["loses focus"] = [&] { EXPECT_TRUE(b->isAttached()); };
    w.theFrame().removeView(box);
    EXPECT_EQ(w.log.take(), "a takes focus, a loses focus, b takes focus, b loses focus, b gone");
    w.theFrame().setFocusView(a);
    w.log.take();
    w.close();
    EXPECT_EQ(w.log.take(), "a gone") << "closing tells nobody";
}

TEST_F(FrameFocus, AModalViewTakesTheKeyboardAndGetsTheKeysNobodyUsed) {
    w.theFrame().setFocusView(a);
    auto* const modal = new ScriptedControl("m", CRect(0, 0, 50, 50), w.log);
    w.theFrame().setModalView(modal);
    w.press(VKEY_ESCAPE);
    EXPECT_EQ(w.log.take(), "a takes focus, a loses focus, m key");
    w.theFrame().setModalView(nullptr);
    modal->forget();
}

TEST(FrameSize, IsTheOldOneWhereTheHostRefusesTheNew) {
    ToolkitWindow w;
    w.mayResize = false;
    EXPECT_FALSE(w.theFrame().setSize(300, 260));
    EXPECT_EQ(w.theFrame().getViewSize(), CRect(0, 0, 200, 100));
}

} // namespace
} // namespace VSTGUI
