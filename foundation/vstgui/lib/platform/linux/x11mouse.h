#pragma once

#include <optional>

#include <xcb/xcb.h>

#include "vstgui/lib/cview.h"

namespace VSTGUI {

/// The buttons and modifiers of an event's or a query's mask. X counts the wheel as buttons, too:
/// those are left out.
CButtonState buttonsOf(uint16_t stateMask);

/// The bit of button `number`, 0 for the wheel's.
int32_t buttonBit(uint8_t number);

/// A turn of the wheel by one notch, as X tells it: a press of the buttons 4 to 7.
struct WheelNotch {
    CMouseWheelAxis axis;
    float distance; // up and right are positive
};
std::optional<WheelNotch> wheelNotchOf(uint8_t buttonNumber);

/// Tells which presses are the second of a double click.
class ClickCounter {
public:
    static constexpr uint32_t kDoubleClickMs = 400;
    static constexpr int kDoubleClickPixels = 4;

    /// A press after the second one is a first again.
    bool isDoubleClick(const xcb_button_press_event_t& press);

private:
    std::optional<xcb_button_press_event_t> first_;
};

/// Merges mouse movements, so that a control sees about 125 a second however fast the mouse
/// reports and however seldom the host calls.
class MotionMerger {
public:
    static constexpr uint32_t kMergedMs = 8;

    /// Takes a movement in. @return one that has to be delivered before it
    std::optional<xcb_motion_notify_event_t> add(const xcb_motion_notify_event_t& motion);
    /// What waits, before an event of another kind or at the end.
    std::optional<xcb_motion_notify_event_t> take();

private:
    std::optional<xcb_motion_notify_event_t> waiting_;
    xcb_timestamp_t since_ = 0; // of the first that was merged into the waiting one
};

} // namespace VSTGUI
