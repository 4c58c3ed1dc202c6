#include "tests/foundation/vstgui/x11/EditorInHost.h"

namespace VSTGUI {
namespace {

TEST(X11Mouse, EveryButtonArrivesWithPlaceAndModifiersAndAnUpWithoutItself) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    ScriptedControl* const pad = w.editor.add("pad", CRect(20, 20, 120, 120));
    EXPECT_EQ(w.logAfter([&] { w.host.moveTo(50, 60); }), "pad enter, pad move");
    EXPECT_EQ(pad->lastWhere, CPoint(50, 60));

    struct Row {
        uint8_t number;
        int32_t bit;
    };
    for (const Row row : {Row{1, kLButton}, Row{2, kMButton}, Row{3, kRButton}}) {
        SCOPED_TRACE(testing::Message() << "button " << int{row.number});
        EXPECT_EQ(w.logAfter([&] { w.host.button(row.number, true); }).find("pad exit"),
                  std::string::npos);
        EXPECT_EQ(pad->lastButtons.getButtonState(), row.bit);
        w.logAfter([&] { w.host.moveTo(51, 60); });
        EXPECT_EQ(pad->lastButtons.getButtonState(), row.bit) << "while it moves";
        EXPECT_EQ(w.logAfter([&] { w.host.button(row.number, false); }), "pad up");
        EXPECT_EQ(pad->lastButtons.getButtonState(), 0);
    }
    w.host.key(0xFFE1, true); // Shift
    w.host.button(1, true);
    w.host.moveTo(60, 60);
    w.settle();
    EXPECT_EQ(pad->lastButtons(), kLButton | kShift) << "moves carry the modifiers, too";
    EXPECT_EQ(w.editor.theFrame().getCurrentMouseButtons()(), kLButton | kShift);
    CPoint where;
    EXPECT_TRUE(w.editor.theFrame().getCurrentMouseLocation(where));
    EXPECT_EQ(where, CPoint(60, 60));
    w.host.button(1, false);
    w.host.key(0xFFE1, false);
}

TEST(X11Mouse, ADragGoesOnOutsideTheWindowAndEndsThere) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    ScriptedControl* const knob = w.editor.add("knob", CRect(20, 20, 60, 60));
    w.host.moveTo(30, 30);
    w.host.button(1, true);
    EXPECT_EQ(w.logAfter([&] { w.host.moveTo(30, -40); }), "knob move");
    EXPECT_EQ(knob->lastWhere, CPoint(30, -40));
    EXPECT_EQ(w.logAfter([&] { w.host.button(1, false); }), "knob up, knob exit");
}

TEST(X11Mouse, ADragEndsWhereTheReleaseIsNotTold) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    w.editor.add("pad", CRect(0, 0, 100, 100));
    w.host.moveTo(20, 20);
    EXPECT_EQ(w.logAfter([&] { w.host.button(1, true); }), "pad down");
    EXPECT_EQ(w.logAfter([&] { xcb_unmap_window(w.host.xcb(), w.host.windowId()); }), "");
    EXPECT_EQ(w.logAfter([&] { w.host.button(1, false); }), "pad up");
    xcb_map_window(w.host.xcb(), w.host.windowId());
    w.settle();
    w.host.button(1, true);
    w.settle();
    EXPECT_NE(w.logAfter([&] { w.host.destroyWindow(); }).find("pad up"), std::string::npos);
    w.host.button(1, false);
}

TEST(X11Mouse, ComesAndGoes) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    w.editor.add("all", CRect(0, 0, TestEditor::kWidth, TestEditor::kHeight));
    EXPECT_EQ(w.logAfter([&] { w.host.moveTo(200, 100); }), "all enter, all move");
    EXPECT_EQ(w.logAfter([&] { w.host.moveTo(-20, 100); }), "all exit");
}

TEST(X11Mouse, TheSecondOfTwoQuickPressesIsDoubleAndTheThirdIsNot) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    ScriptedControl* const pad = w.editor.add("pad", CRect(0, 0, 100, 100));
    std::string doubles;
    pad->script["down"] = [&] { doubles += pad->lastButtons.isDoubleClick() ? "2" : "1"; };
    for (int i = 0; i < 4; ++i)
        w.host.click(10, 10);
    w.host.click(30, 10);
    w.host.click(30, 10, 3);
    w.settle();
    EXPECT_EQ(doubles, "121211");
}

TEST(X11Mouse, ANotchOfTheWheelIsOneWithoutAPress) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    w.editor.add("knob", CRect(0, 0, 100, 100));
    w.host.moveTo(50, 50);
    const std::string log = w.logAfter([&] {
        w.host.notch(4);
        w.host.notch(4);
        w.host.notch(5);
        w.host.notch(7);
    });
    EXPECT_EQ(log, "knob wheel 1, knob wheel 1, knob wheel -1, knob wheel -1")
        << "sideways counts the other way";
    EXPECT_EQ(w.host.takeKeys(), "");
}

xcb_motion_notify_event_t motionAt(uint32_t timeMs, int16_t x, uint16_t state = 0) {
    xcb_motion_notify_event_t motion{};
    motion.time = timeMs;
    motion.event_x = x;
    motion.state = state;
    return motion;
}

TEST(MotionMerger, JoinsWhatComesWithinEightMilliseconds) {
    MotionMerger merger;
    std::string delivered;
    const auto deliver = [&](const std::optional<xcb_motion_notify_event_t>& motion) {
        if (motion)
            delivered += std::to_string(motion->event_x) + " ";
    };
    for (const auto& [time, x] : {std::pair{0U, 1}, {4U, 2}, {7U, 3}, {8U, 4}, {15U, 5}, {40U, 6}})
        deliver(merger.add(motionAt(time, static_cast<int16_t>(x))));
    deliver(merger.add(motionAt(41, 7, XCB_BUTTON_MASK_1)));
    deliver(merger.take());
    deliver(merger.take());
    EXPECT_EQ(delivered, "3 5 6 7 ");
}

TEST(ClickCounter, NeedsTheSameButtonAtTheSamePlaceInTime) {
    struct Row {
        const char* story;
        uint8_t button;
        uint32_t time;
        int16_t x;
        bool isDouble;
    };
    for (const Row& row : {Row{"quick", 1, 400, 4, true}, Row{"late", 1, 401, 0, false},
                           Row{"far", 1, 100, 5, false}, Row{"another", 3, 100, 0, false}}) {
        ClickCounter counter;
        xcb_button_press_event_t press{};
        press.detail = 1;
        EXPECT_FALSE(counter.isDoubleClick(press));
        press.detail = row.button;
        press.time = row.time;
        press.event_x = row.x;
        EXPECT_EQ(counter.isDoubleClick(press), row.isDouble) << row.story;
    }
}

} // namespace
} // namespace VSTGUI
