#include <gtest/gtest.h>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

namespace VSTGUI {
namespace {

using Rects = std::vector<CRect>;

/// A window with one control that wants to be drawn.
class Control : public testing::Test {
protected:
    Rects painted() {
        w.window().turn();
        return w.window().lastPainted();
    }
    ToolkitWindow w;
    ScriptedControl* const a = w.add("a", CRect(10, 10, 20, 20));
};

TEST_F(Control, IsDrawnOnceAtTheNextTurnAndNowhereElse) {
    w.add("b", CRect(50, 10, 60, 20));
    const Rects placeOfA{a->getViewSize()};
    painted();
    EXPECT_EQ(w.log.take(), "a draw, b draw");
    EXPECT_TRUE(painted().empty());
    a->setValue(0.3F);
    EXPECT_TRUE(w.window().dirtyRegion().isEmpty()) << "nothing happens inside the call";
    EXPECT_EQ(painted(), placeOfA);
    EXPECT_FALSE(a->isDirty());
    a->setVisible(false);
    EXPECT_EQ(painted(), placeOfA) << "what lies below it";
    a->setDirty();
    EXPECT_TRUE(painted().empty());
    EXPECT_EQ(w.log.take(), "a draw");
    a->setVisible(true);
    EXPECT_EQ(painted(), placeOfA);
    w.theFrame().removeView(a);
    EXPECT_EQ(painted(), placeOfA);
    EXPECT_EQ(w.log.take(), "a draw, a gone");
}

TEST_F(Control, InvalidatesNoMoreThanItsContainerShows) {
    ScriptedControl* const inside =
        w.add("inside", CRect(10, 10, 100, 15), w.addContainer("box", CRect(50, 50, 70, 70)));
    painted();
    inside->invalid();
    EXPECT_EQ(painted(), Rects{CRect(60, 60, 70, 65)});
    EXPECT_EQ(inside->getVisibleSize(), CRect(10, 10, 20, 15));
}

TEST_F(Control, ClampsValuesWhenSetAndNotWhenTheRangeIs) {
    a->setMax(4);
    a->setValue(5);
    EXPECT_EQ(a->getValue(), 4);
    a->setValueNormalized(0.5F);
    a->setMax(1);
    EXPECT_EQ(a->getValue(), 2);
    a->bounceValue();
    EXPECT_EQ(a->getValue(), 1);
    a->setMin(-1);
    a->setValue(-1);
    a->setDirty();
    EXPECT_EQ(a->getOldValue(), 0.0F) << "-1 as a rule, but it has to differ from the value";
    EXPECT_EQ(w.log.take(), "");
}

TEST_F(Control, TellsListenerAndHostOfEveryEditInMirroredOrder) {
    a->beginEdit();
    a->beginEdit();
    a->endEdit();
    EXPECT_EQ(w.log.take(), "begin, host begins 7, begin, host begins 7, host ends 7, end");
    for (const int32_t beside : {kShift, kDoubleClick, kRButton})
        EXPECT_FALSE(a->checkDefaultValue(kLButton | kControl | beside));
    EXPECT_TRUE(a->checkDefaultValue(kLButton | kControl));
    EXPECT_TRUE(a->checkDefaultValue(kLButton | kControl)) << "there already: nothing to tell";
    EXPECT_EQ(a->getValue(), 0.5F);
    EXPECT_EQ(w.log.take(), "begin, host begins 7, value, host ends 7, end");
    w.theFrame().removeView(a, false);
    a->endEdit();
    EXPECT_EQ(w.log.take(), "end") << "no frame, no host";
    a->forget();
}

TEST(DirtyRegion, RectanglesNeverOverlap) {
    const CRect bounds(0, 0, 100, 100);
    DirtyRegion region;
    region.add(CRect(0.5, 0.5, 9.2, 9.2), bounds);
    region.add(CRect(8, 20, 40, 30), bounds);
    region.add(CRect(200, 0, 300, 10), bounds);
    EXPECT_EQ(region.rects(), (Rects{CRect(0, 0, 10, 10), CRect(8, 20, 40, 30)}));
    region.add(CRect(20, 5, 30, 25), bounds); // meets the second, and grown so the first
    EXPECT_EQ(region.rects(), Rects{CRect(0, 0, 40, 30)});
    for (int i = 0; i < 80; ++i)
        region.add(CRect(i % 10 * 10, 40 + i / 10 * 7, i % 10 * 10 + 2, 42 + i / 10 * 7), bounds);
    EXPECT_LE(region.rects().size(), 33U);
    EXPECT_EQ(boundsOf(region.take()), CRect(0, 0, 92, 91));
}

struct TimerCounter : public CBaseObject {
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
    ~Timer() override { EXPECT_FALSE(CVSTGUITimer::isAnyRunning()); }
    int countAfter(uint64_t ms) {
        w.clock.advance(ms);
        w.window().turn();
        return std::exchange(counter.count, 0);
    }
    ToolkitWindow w;
    TimerCounter counter;
    CVSTGUITimer* timer = new CVSTGUITimer(&counter, 50);
};

TEST_F(Timer, FiresOnceHoweverLateAndCountsFromThere) {
    EXPECT_EQ(countAfter(60), 0) << "not started";
    EXPECT_TRUE(timer->start());
    for (const auto& [ms, count] : {std::pair{49U, 0}, {1U, 1}, {170U, 1}, {49U, 0}})
        EXPECT_EQ(countAfter(ms), count) << ms;
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

TEST_F(Timer, OfAnEditorFiresOnceATurnWithoutAFrameToo) {
    AEffGUIEditor editor(nullptr);
    timer->start();
    counter.inMessage = [&](CVSTGUITimer* /*timer*/) {
        w.clock.advance(50);
        editor.idle();
    };
    w.clock.advance(50);
    editor.idle();
    EXPECT_EQ(counter.count, 1);
    timer->forget();
}

} // namespace
} // namespace VSTGUI
