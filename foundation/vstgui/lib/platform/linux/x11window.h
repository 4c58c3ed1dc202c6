#pragma once

#include <memory>

#include "vstgui/lib/platform/linux/x11connection.h"
#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

/// Where a window stands, in its parent's pixels.
struct X11Place {
    int16_t x = 0;
    int16_t y = 0;
    uint16_t width = 1;
    uint16_t height = 1;
};

/// A window of ours with its graphics context and, where it needs one, its colour map.
///
/// Its pixels are 32 bits of red, green and blue from the top down, with or without alpha: what the
/// toolkit draws can be copied as it is.
class X11Window {
public:
    /// Inside the host's window, like that in depth and visual, so that nothing is converted. Null
    /// when there is no such window, or no pixels of our kind on its screen.
    static std::unique_ptr<X11Window> child(X11Connection& connection, xcb_window_t parent,
                                            const X11Place& place);
    /// On the screen itself; the window manager leaves it alone.
    static std::unique_ptr<X11Window> popup(X11Connection& connection, const xcb_screen_t& screen,
                                            const X11Place& place);
    ~X11Window();
    X11Window(const X11Window&) = delete;
    X11Window& operator=(const X11Window&) = delete;

    xcb_window_t id() const { return id_; }
    xcb_gcontext_t gc() const { return gc_; }
    uint8_t depth() const { return depth_; }
    const xcb_screen_t& screen() const { return screen_; }

    void map();
    void resize(uint16_t width, uint16_t height);
    /// Someone else destroyed it.
    void markDestroyed() { isDestroyed_ = true; }

private:
    struct Pixels {
        uint8_t depth;
        xcb_visualid_t visual;
    };

    X11Window(X11Connection& connection, const xcb_screen_t& screen, uint8_t depth);
    static bool findPixels(const X11Connection& connection, const xcb_screen_t& screen,
                           Pixels& pixels);
    bool create(xcb_window_t parent, xcb_visualid_t visual, const X11Place& place, bool isUnmanaged,
                uint32_t eventMask);

    X11Connection& connection_;
    const xcb_screen_t& screen_;
    xcb_colormap_t colormap_ = XCB_NONE; // none: the screen's own
    xcb_window_t id_ = XCB_NONE;
    xcb_gcontext_t gc_ = XCB_NONE;
    uint8_t depth_;
    bool isDestroyed_ = false;
};

} // namespace VSTGUI
