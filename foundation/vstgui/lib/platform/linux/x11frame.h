#pragma once

#include <bitset>
#include <memory>

#include "vstgui/lib/platform/common/bufferedframe.h"
#include "vstgui/lib/platform/linux/x11canvas.h"
#include "vstgui/lib/platform/linux/x11clipboard.h"
#include "vstgui/lib/platform/linux/x11cursors.h"
#include "vstgui/lib/platform/linux/x11embedding.h"
#include "vstgui/lib/platform/linux/x11keyboard.h"
#include "vstgui/lib/platform/linux/x11mouse.h"
#include "vstgui/lib/platform/linux/x11window.h"

namespace VSTGUI {

class X11Menu;

/// Opens a child of the X11 window whose number `parent` holds. Null without a display or parent.
IPlatformFrame* createX11Frame(IPlatformFrameCallback* callback, const CRect& size, void* parent);

/// A frame's window inside the host's.
///
/// Has a connection to the server for itself and no state outside: two editors cannot disturb each
/// other, and a closed one leaves nothing. Everything moves in `pumpEvents` and `paintInvalid`,
/// which ask the server for nothing while nothing happens. When the host has destroyed the window,
/// or the server is gone, all operations do nothing.
///
/// The keyboard is taken by a press on the window alone. A key that the frame does not use goes on
/// to the host's window, press and release, so that the host's own keys work.
class X11Frame : public BufferedFrame {
public:
    static X11Frame* open(IPlatformFrameCallback* callback, const CRect& size, xcb_window_t parent);

    bool setSize(const CRect& newSize) override;
    bool setScaleFactor(double pixelsPerUnit) override;
    bool getGlobalPosition(CPoint& pos) const override; // on the screen, logical pixels
    bool getCurrentMousePosition(CPoint& where) const override;
    bool getCurrentMouseButtons(CButtonState& buttons) const override;
    bool setMouseCursor(CCursorType type) override;
    void* getPlatformRepresentation() const override; // the window's number
    IPlatformOptionMenu* createPlatformOptionMenu() override;
    Clipboard& clipboard() override { return clipboard_; }
    void pumpEvents() override;
    void paintInvalid() override;
    void frameClosed() override;

    // For the menu

    X11Connection& connection() { return *connection_; }
    const xcb_screen_t& screen() const { return window_->screen(); }
    /// The monitor on which the window's middle is, in the frame's space; empty without a window.
    CRect monitorAround() const;
    /// Where the mouse was at the last event that had a place.
    const CPoint& lastMouse() const { return lastMouse_; }
    /// Whether there still is a window.
    bool isUsable() const { return window_ && !isDestroyed_ && connection_->isAlive(); }
    /// Not owned; takes itself away.
    void setOpenMenu(X11Menu* menu) { menu_ = menu; }
    X11Menu* openMenu() const { return menu_; }

protected:
    ~X11Frame() override;
    std::unique_ptr<PixmanSurface> makeSurface(CCoord width, CCoord height,
                                               double pixelsPerUnit) override;

private:
    X11Frame(IPlatformFrameCallback* callback, const CRect& size,
             std::unique_ptr<X11Connection> connection, std::unique_ptr<X11Window> window,
             xcb_window_t parent);

    void pumpAll(XcbOwned<xcb_generic_event_t> first);
    void takeEvent(const xcb_generic_event_t& event);
    void dispatch(const xcb_generic_event_t& event);
    void deliverMotion();
    void pressed(const xcb_button_press_event_t& press);
    void released(const xcb_button_release_event_t& release);
    void moved(const xcb_motion_notify_event_t& motion);
    void releaseLost(const CButtonState& stillHeld);
    void left(const xcb_leave_notify_event_t& crossing);
    void keyPressed(const xcb_key_press_event_t& press);
    void keyReleased(const xcb_key_release_event_t& release);
    void handOn(const xcb_key_press_event_t& key);
    xcb_window_t listenerAround(uint32_t mask) const;
    void focusChanged(const xcb_focus_in_event_t& change, bool hasFocus);
    void embeddingSays(const xcb_client_message_event_t& message);
    void activate(bool state);
    void believeFocusLeft();
    bool hasKeyboard() const { return hasFocus_ && !isFocusLeaving_; }
    void takeFocus();
    void exposed(const xcb_expose_event_t& expose);
    void destroyed();
    void cancelMenu();
    void resizeWindow();
    CPoint logical(int x, int y) const;
    CPoint note(int x, int y, const CButtonState& buttons);
    XcbOwned<xcb_query_pointer_reply_t> queryPointer() const;

    // In the order in which they are made; what stands below goes first.
    std::unique_ptr<X11Connection> connection_;
    std::unique_ptr<X11Window> window_; // null when the frame is closed
    X11Canvas canvas_;
    X11Cursors cursors_;
    X11Keyboard keyboard_;
    X11Clipboard clipboard_;
    X11Embedding embedding_;

    ClickCounter clicks_;
    MotionMerger motions_;
    X11Menu* menu_ = nullptr;
    xcb_window_t parent_;
    std::bitset<256> keysUsed_; // pressed and not the host's: nor are their releases
    CPoint lastMouse_;
    bool isMouseAway_ = true; // over other windows: the server need not be asked
    CButtonState lastButtons_;
    int32_t held_ = 0;            // buttons that were pressed here and not let go yet
    std::vector<CRect> exposed_;  // logical pixels
    bool isFocusLeaving_ = false; // gone, and not believed yet
    uint64_t focusLeftMs_ = 0;
    bool hasFocus_ = false;
    bool isDestroyed_ = false; // by the host
};

} // namespace VSTGUI
