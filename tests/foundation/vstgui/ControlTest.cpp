#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

namespace VSTGUI {
namespace {

// What is drawn, and when

TEST(DirtyViews, AreDrawnOnceAtTheNextTurnAndNowhereElse) {
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(10, 10, 20, 20));
    w.add("b", CRect(50, 10, 60, 20));
    w.window().turn();
    EXPECT_EQ(w.log.take(), "a draw, b draw");
    w.window().turn();
    EXPECT_TRUE(w.window().lastPainted().empty());

    a->setValue(0.3F);
    EXPECT_TRUE(a->isDirty());
    EXPECT_TRUE(w.window().dirtyRegion().isEmpty()) << "nothing happens inside the call";
    w.window().turn();
    EXPECT_EQ(w.window().lastPainted(), std::vector<CRect>{a->getViewSize()});
    EXPECT_EQ(w.log.take(), "a draw");
    EXPECT_FALSE(a->isDirty());
}

TEST(DirtyViews, HiddenOnesAndTheirPlaceFollowTheirVisibility) {
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(10, 10, 20, 20));
    w.window().turn();
    a->setVisible(false);
    w.window().turn();
    EXPECT_EQ(w.window().lastPainted(), std::vector<CRect>{a->getViewSize()});
    a->setDirty();
    w.window().turn();
    EXPECT_TRUE(w.window().lastPainted().empty());
    w.log.take();
    a->setVisible(true);
    w.window().turn();
    EXPECT_EQ(w.log.take(), "a draw");
}

TEST(DirtyViews, AContainerCutsWhatItsChildrenInvalidate) {
    ToolkitWindow w;
    LoggingContainer* const box = w.addContainer("box", CRect(50, 50, 70, 70));
    ScriptedControl* const a = w.add("a", CRect(10, 10, 100, 15), box);
    w.window().turn();
    a->invalid();
    w.window().turn();
    EXPECT_EQ(w.window().lastPainted(), std::vector<CRect>{CRect(60, 60, 70, 65)});
    EXPECT_EQ(a->getVisibleSize(), CRect(10, 10, 20, 15));
}

TEST(DirtyRegion, RectanglesNeverOverlap) {
    const CRect bounds(0, 0, 100, 100);
    DirtyRegion region;
    region.add(CRect(0.5, 0.5, 9.2, 9.2), bounds);
    region.add(CRect(20, 0, 30, 10), bounds);
    EXPECT_EQ(region.rects(), (std::vector<CRect>{CRect(0, 0, 10, 10), CRect(20, 0, 30, 10)}));
    region.add(CRect(200, 0, 300, 10), bounds);
    region.add(CRect(8, 2, 22, 4), bounds); // bridges the two
    EXPECT_EQ(region.rects(), std::vector<CRect>{CRect(0, 0, 30, 10)});
    for (int i = 0; i < 80; ++i)
        region.add(CRect(i % 10 * 10, 20 + i / 10 * 10, i % 10 * 10 + 2, 22 + i / 10 * 10), bounds);
    EXPECT_LE(region.rects().size(), 33U);
    EXPECT_EQ(boundsOf(region.take()), CRect(0, 0, 92, 92));
    EXPECT_TRUE(region.isEmpty());
}

// A control's value

TEST(Control, OldValueIsAMarkOfDirtiness) {
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(0, 0, 10, 10));
    a->setDirty();
    EXPECT_EQ(a->getOldValue(), -1.0F);
    a->setMin(-1);
    a->setValue(-1);
    a->setDirty();
    EXPECT_EQ(a->getOldValue(), 0.0F) << "has to differ from the value";
    a->invalid();
    EXPECT_EQ(a->getOldValue(), -1.0F);
    EXPECT_FALSE(a->isDirty());
}

TEST(Control, ValuesAreClampedWhenSetAndNotWhenTheRangeIs) {
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(0, 0, 10, 10));
    a->setMax(4);
    a->setValueNormalized(0.5F);
    EXPECT_EQ(a->getValue(), 2);
    a->setMax(1);
    EXPECT_EQ(a->getValue(), 2);
    a->bounceValue();
    EXPECT_EQ(a->getValue(), 1);
    EXPECT_EQ(w.log.take(), "");
}

TEST(Control, EveryEditReachesListenerAndHostInMirroredOrder) {
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(0, 0, 10, 10));
    a->beginEdit();
    a->beginEdit();
    a->endEdit();
    EXPECT_EQ(w.log.take(), "begin, host begins 7, begin, host begins 7, host ends 7, end");
    w.theFrame().removeView(a, false);
    a->endEdit();
    EXPECT_EQ(w.log.take(), "end") << "no frame, no host";
    a->forget();
}

TEST(Control, LeftWithCtrlGoesToTheDefault) {
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(0, 0, 10, 10));
    EXPECT_FALSE(a->checkDefaultValue(kLButton | kControl | kShift));
    EXPECT_FALSE(a->checkDefaultValue(kLButton | kControl | kDoubleClick));
    EXPECT_TRUE(a->checkDefaultValue(kLButton | kControl));
    EXPECT_TRUE(a->checkDefaultValue(kLButton | kControl));
    EXPECT_EQ(a->getValue(), 0.5F);
    EXPECT_EQ(w.log.take(), "begin, host begins 7, value, host ends 7, end");
}

// Timers

class TimerCounter : public CBaseObject {
public:
    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override {
        EXPECT_EQ(message, CVSTGUITimer::kMsgTimer);
        ++count;
        if (inMessage)
            inMessage(static_cast<CVSTGUITimer*>(sender));
        return kMessageNotified;
    }
    int count = 0;
    std::function<void(CVSTGUITimer*)> inMessage;
};

class Timer : public testing::Test {
protected:
    int countAfter(uint64_t ms) {
        clock.advance(ms);
        CVSTGUITimer::fireDueTimers();
        return std::exchange(counter.count, 0);
    }
    ~Timer() override { EXPECT_FALSE(CVSTGUITimer::isAnyRunning()); }

    ManualClock clock;
    TimerCounter counter;
    CVSTGUITimer* timer = new CVSTGUITimer(&counter, 50);
};

TEST_F(Timer, FiresOnceHoweverLateAndCountsFromThere) {
    EXPECT_EQ(countAfter(60), 0) << "not started";
    timer->start();
    EXPECT_EQ(countAfter(49), 0);
    EXPECT_EQ(countAfter(1), 1);
    EXPECT_EQ(countAfter(170), 1);
    EXPECT_EQ(countAfter(49), 0);
    EXPECT_FALSE(timer->start()) << "running";
    EXPECT_EQ(countAfter(1), 1);
    timer->setFireTime(10);
    EXPECT_EQ(countAfter(10), 1);
    timer->stop();
    EXPECT_EQ(countAfter(100), 0);
    timer->forget();
}

TEST_F(Timer, MayBeForgottenOrStopAnotherInItsMessage) {
    auto* const second = new CVSTGUITimer(&counter, 50);
    timer->start();
    second->start();
    counter.inMessage = [&](CVSTGUITimer* fired) {
        EXPECT_EQ(fired, timer);
        second->forget();
        fired->forget();
    };
    EXPECT_EQ(countAfter(50), 1);
}

// The editor's idle

class NestingEditor : public AEffGUIEditor {
public:
    NestingEditor() : AEffGUIEditor(nullptr) {}
    void use(CFrame* newFrame) { frame = newFrame; }
};

TEST(Editor, OneTurnAtATimeAndTimersWithoutAFrameToo) {
    ToolkitWindow w;
    NestingEditor editor;
    TimerCounter counter;
    auto* const timer = new CVSTGUITimer(&counter, 50);
    timer->start();
    counter.inMessage = [&](CVSTGUITimer* /*timer*/) {
        w.clock.advance(50);
        editor.idle();
    };
    w.clock.advance(50);
    editor.idle();
    EXPECT_EQ(counter.count, 1);
    timer->forget();

    editor.use(&w.theFrame());
    w.add("a", CRect(0, 0, 10, 10));
    editor.idle();
    EXPECT_EQ(w.log.take(), "a draw");
    EXPECT_TRUE(editor.setKnobMode(kLinearMode));
    EXPECT_EQ(NestingEditor().getKnobMode(), kLinearMode) << "one choice for all editors";
    editor.setKnobMode(kCircularMode);
    VstKeyCode key{'a', 0, 0};
    EXPECT_FALSE(editor.onKeyDown(key));
}

} // namespace
} // namespace VSTGUI
