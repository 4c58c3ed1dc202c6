#pragma once

#include <array>

#include "vstgui/lib/cview.h"
#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// The mouse pointer's shapes over one window, from the font that every server has.
class X11Cursors {
public:
    explicit X11Cursors(X11Connection& connection) : connection_(connection) {}
    ~X11Cursors();
    X11Cursors(const X11Cursors&) = delete;
    X11Cursors& operator=(const X11Cursors&) = delete;

    /// The default shape is that of the host's window. Nothing is sent when it is shown already.
    void show(CCursorType type, xcb_window_t window);

private:
    xcb_cursor_t made(CCursorType type);

    X11Connection& connection_;
    CCursorType shown_ = kCursorDefault;
    std::array<xcb_cursor_t, kCursorHand + 1> made_{}; // when first shown
};

} // namespace VSTGUI
