#pragma once

#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// Presses of the mouse anywhere on the screen, for as long as this exists.
///
/// Nothing is grabbed: the server's input extension tells a press to everybody who asks, beside the
/// program whose window is pressed. A server without the extension tells nothing.
class X11Presses {
public:
    X11Presses(X11Connection& connection, xcb_window_t root);
    ~X11Presses();
    X11Presses(const X11Presses&) = delete;
    X11Presses& operator=(const X11Presses&) = delete;

    /// Whether the event tells a press of a button. It comes before the event of the window that is
    /// pressed, without a place; the wheel's notches do not count.
    bool isPress(const xcb_generic_event_t& event) const;

private:
    void announceVersion() const;
    void select(uint32_t events) const;

    X11Connection& connection_;
    xcb_window_t root_;
    uint8_t extension_ = 0; // its number on this server; 0: it has none
};

} // namespace VSTGUI
