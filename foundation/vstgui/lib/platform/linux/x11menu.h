#pragma once

#include <memory>
#include <optional>

#include "vstgui/lib/platform/common/framemenu.h"
#include "vstgui/lib/platform/linux/x11canvas.h"
#include "vstgui/lib/platform/linux/x11presses.h"
#include "vstgui/lib/platform/linux/x11window.h"

namespace VSTGUI {

class PixmanSurface;
class X11Frame;

/// An open menu as a window of its own, so that the frame's edge does not cut it.
///
/// Grabs nothing: a grab could outlive the menu, or a host that is stopped. The frame has the
/// keyboard and sends the keys here first. A press somewhere else on the screen is told by the
/// server, however short it is; where it cannot, the loss of the keyboard closes the menu.
class X11Menu : public FrameMenu {
public:
    explicit X11Menu(X11Frame& frame);

    /// @return whether the event was the menu's; the menu may be closed then
    bool handle(const xcb_generic_event_t& event);
    /// Closes after a press elsewhere, scrolls on. At each pump.
    void pump();
    /// Shows what has changed.
    void paint();
    /// Closes without a choice, as a press elsewhere does.
    void cancel();

protected:
    ~X11Menu() override;

    CRect screenArea() const override;
    bool show(const CRect& place) override;
    void hide() override;
    void listChanged() override {} // `paint` draws

private:
    bool isOurs(const xcb_generic_event_t& event) const;
    void pressed(const xcb_button_press_event_t& press);
    void closeOnPressElsewhere();
    CPoint inMenu(int x, int y) const;

    X11Frame& x11_;
    X11Canvas canvas_;
    std::unique_ptr<X11Window> window_;
    std::unique_ptr<PixmanSurface> surface_;
    std::optional<X11Presses> presses_; // while open
    uint64_t pulsedMs_ = 0;
    bool wasPressed_ = false; // somewhere, and not on the menu as far as is known
    bool isExposed_ = false;
};

} // namespace VSTGUI
