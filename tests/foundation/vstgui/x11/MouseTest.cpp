#include "tests/foundation/vstgui/x11/EditorInHost.h"

namespace VSTGUI {
namespace {

/// An editor with a view in its corner.
class PadInHost : public EditorInHost {
public:
    PadInHost() : pad(editor.add("pad", CRect(20, 20, 120, 120))) {}
    std::string logOfMove(int x, int y) {
        return logAfter([&] { host.moveTo(x, y); });
    }
    std::string logOfButton(uint8_t number, bool isDown) {
        return logAfter([&] { host.button(number, isDown); });
    }
    ScriptedControl* pad;
};

TEST(X11Mouse, EveryButtonArrivesWithPlaceAndModifiersAndAnUpWithoutItself) {
    PEDL_NEEDS_DISPLAY();
    PadInHost w;
    EXPECT_EQ(w.logOfMove(50, 60), "pad enter, pad move");
    EXPECT_EQ(w.pad->lastWhere, CPoint(50, 60));
    for (const auto& [number, bit] : {std::pair{1, +kLButton}, {2, +kMButton}, {3, +kRButton}}) {
        EXPECT_EQ(w.logOfButton(static_cast<uint8_t>(number), true), "pad down");
        EXPECT_EQ(w.pad->lastButtons(), bit);
        EXPECT_EQ(w.logOfMove(50 + number, 60), "pad move");
        EXPECT_EQ(w.pad->lastButtons(), bit);
        EXPECT_EQ(w.logOfButton(static_cast<uint8_t>(number), false), "pad up");
        EXPECT_EQ(w.pad->lastButtons(), 0);
    }
    w.host.key(0xFFE1, true); // Shift
    w.host.button(1, true);
    w.logOfMove(60, 60);
    EXPECT_EQ(w.pad->lastButtons(), kLButton | kShift) << "moves carry the modifiers, too";
    EXPECT_EQ(w.editor.theFrame().getCurrentMouseButtons()(), kLButton | kShift);
    CPoint where;
    EXPECT_TRUE(w.editor.theFrame().getCurrentMouseLocation(where));
    EXPECT_EQ(where, CPoint(60, 60));
    w.host.button(1, false);
    w.host.key(0xFFE1, false);
    EXPECT_EQ(w.logAfter([&] {
        for (const uint8_t notch : std::initializer_list<uint8_t>{4, 5, 7})
            w.host.notch(notch);
    }),
              "pad wheel 1, pad wheel -1, pad wheel -1")
        << "sideways the other way round";
    w.editor.theFrame().setScaleFactor(2.0);
    w.logOfMove(60, 100);
    EXPECT_EQ(w.pad->lastWhere, CPoint(30, 50)) << "in the editor's units";
}

TEST(X11Mouse, ADragGoesOnOutsideTheWindowAndEndsWhereTheReleaseIsNotTold) {
    PEDL_NEEDS_DISPLAY();
    PadInHost w;
    w.host.moveTo(30, 30);
    w.logOfButton(1, true);
    EXPECT_EQ(w.logOfMove(30, -40), "pad move");
    EXPECT_EQ(w.pad->lastWhere, CPoint(30, -40));
    EXPECT_EQ(w.logOfButton(1, false), "pad up, pad exit");
    EXPECT_EQ(w.logOfMove(30, 30), "pad enter, pad move");
    EXPECT_EQ(w.logOfMove(-30, 30), "pad exit");

    w.host.moveTo(30, 30);
    w.logOfButton(1, true);
    EXPECT_EQ(w.logAfter([&] { xcb_unmap_window(w.host.xcb(), w.host.windowId()); }), "");
    EXPECT_EQ(w.logOfButton(1, false), "pad up");
    xcb_map_window(w.host.xcb(), w.host.windowId());
    w.settle();
    w.logOfButton(1, true);
    EXPECT_NE(w.logAfter([&] { w.host.destroyWindow(); }).find("pad up"), std::string::npos);
    w.host.button(1, false);
}

TEST(X11Mouse, TheSecondOfTwoQuickPressesIsDoubleAndTheThirdIsNot) {
    PEDL_NEEDS_DISPLAY();
    PadInHost w;
    std::string doubles;
    w.pad->script["down"] = [&] { doubles += w.pad->lastButtons.isDoubleClick() ? "2" : "1"; };
    for (int i = 0; i < 4; ++i)
        w.host.click(30, 30);
    w.host.click(50, 30);
    w.host.click(50, 30, 3);
    w.settle();
    EXPECT_EQ(doubles, "121211");

    xcb_button_press_event_t first{};
    xcb_button_press_event_t late = first, far = first, quick = first;
    late.time = 401;
    far.event_x = 5;
    quick.time = 400;
    quick.event_x = 4;
    for (const auto& [second, isDouble] : {std::pair{late, false}, {far, false}, {quick, true}}) {
        ClickCounter counter;
        EXPECT_FALSE(counter.isDoubleClick(first));
        EXPECT_EQ(counter.isDoubleClick(second), isDouble);
    }
}

TEST(MotionMerger, JoinsWhatComesWithinEightMilliseconds) {
    MotionMerger merger;
    std::string delivered;
    xcb_motion_notify_event_t motion{};
    for (const uint32_t time : {0U, 4U, 7U, 8U, 15U, 40U, 41U}) {
        motion.time = time;
        motion.state = time == 41 ? XCB_BUTTON_MASK_1 : 0;
        if (const auto earlier = merger.add(motion))
            delivered += std::to_string(earlier->time) + " ";
    }
    EXPECT_EQ(delivered, "7 15 40 ");
    EXPECT_EQ(merger.take()->time, 41U);
    EXPECT_FALSE(merger.take());
}

} // namespace
} // namespace VSTGUI
