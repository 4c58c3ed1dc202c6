#include "vstgui/lib/platform/linux/x11mouse.h"

#include <cstdlib>
#include <utility>

namespace VSTGUI {

CButtonState buttonsOf(uint16_t stateMask) {
    struct Row {
        uint16_t mask;
        int32_t bit;
    };
    constexpr Row kRows[] = {
        {XCB_BUTTON_MASK_1, kLButton},    {XCB_BUTTON_MASK_2, kMButton},
        {XCB_BUTTON_MASK_3, kRButton},    {XCB_MOD_MASK_SHIFT, kShift},
        {XCB_MOD_MASK_CONTROL, kControl}, {XCB_MOD_MASK_1, kAlt},
    };
    int32_t buttons = 0;
    for (const Row& row : kRows)
        if (stateMask & row.mask)
            buttons |= row.bit;
    return buttons;
}

int32_t buttonBit(uint8_t number) {
    switch (number) {
    case 1:
        return kLButton;
    case 2:
        return kMButton;
    case 3:
        return kRButton;
    case 8:
        return kButton4;
    case 9:
        return kButton5;
    default:
        return 0;
    }
}

std::optional<WheelNotch> wheelNotchOf(uint8_t buttonNumber) {
    switch (buttonNumber) {
    case 4:
        return WheelNotch{kMouseWheelAxisY, 1.0F};
    case 5:
        return WheelNotch{kMouseWheelAxisY, -1.0F};
    case 6:
        return WheelNotch{kMouseWheelAxisX, -1.0F};
    case 7:
        return WheelNotch{kMouseWheelAxisX, 1.0F};
    default:
        return std::nullopt;
    }
}

bool ClickCounter::isDoubleClick(const xcb_button_press_event_t& press) {
    const bool isSecond = first_ && first_->detail == press.detail &&
                          press.time - first_->time <= kDoubleClickMs &&
                          std::abs(press.event_x - first_->event_x) <= kDoubleClickPixels &&
                          std::abs(press.event_y - first_->event_y) <= kDoubleClickPixels;
    if (isSecond)
        first_.reset();
    else
        first_ = press;
    return isSecond;
}

std::optional<xcb_motion_notify_event_t>
MotionMerger::add(const xcb_motion_notify_event_t& motion) {
    if (waiting_ && waiting_->event == motion.event && waiting_->state == motion.state &&
        motion.time - since_ < kMergedMs) {
        waiting_ = motion;
        return std::nullopt;
    }
    since_ = motion.time;
    return std::exchange(waiting_, motion);
}

std::optional<xcb_motion_notify_event_t> MotionMerger::take() {
    return std::exchange(waiting_, std::nullopt);
}

} // namespace VSTGUI
