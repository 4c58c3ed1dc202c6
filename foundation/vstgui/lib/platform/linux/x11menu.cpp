#include "vstgui/lib/platform/linux/x11menu.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/linux/brokenpipeguard.h"
#include "vstgui/lib/platform/linux/x11frame.h"
#include "vstgui/lib/platform/linux/x11mouse.h"

namespace VSTGUI {

namespace {

/// Between two rows when it scrolls by itself.
constexpr uint64_t kScrollMs = 50;
const CPoint kElsewhere(-1e6, -1e6);

int16_t screenPixels(CCoord position) {
    return static_cast<int16_t>(std::clamp(std::round(position), -32000.0, 32000.0));
}

} // namespace

X11Menu::X11Menu(X11Frame& frame) : FrameMenu(frame), x11_(frame), canvas_(frame.connection()) {}

X11Menu::~X11Menu() {
    X11Menu::hide();
}

CRect X11Menu::screenArea() const {
    return x11_.monitorAround();
}

bool X11Menu::show(const CRect& place) {
    const BrokenPipeGuard guard;
    CPoint corner;
    if (!x11_.isUsable() || !x11_.getGlobalPosition(corner))
        return false;
    const double scale = x11_.getScaleFactor();
    const X11Place onScreen{
        screenPixels((corner.x + place.left) * scale), screenPixels((corner.y + place.top) * scale),
        windowPixels(place.width(), scale), windowPixels(place.height(), scale)};
    window_ = X11Window::popup(x11_.connection(), x11_.screen(), onScreen);
    if (!window_)
        return false;
    surface_ = canvas_.makeSurface(place.width(), place.height(), scale, *window_);
    window_->map();
    presses_.emplace(x11_.connection(), x11_.screen().root);
    x11_.connection().flush();
    x11_.setOpenMenu(this);
    menuMouseMoved(x11_.lastMouse() - place.getTopLeft(), {}); // a drag to an entry begins here
    return true;
}

void X11Menu::hide() {
    if (x11_.openMenu() == this)
        x11_.setOpenMenu(nullptr);
    surface_.reset();
    presses_.reset();
    window_.reset();
}

void X11Menu::cancel() {
    menuMouseDown(kElsewhere);
}

void X11Menu::paint() {
    if (!list() || !surface_)
        return;
    if (list()->needsRedraw()) {
        canvas_.waitUntilRead();
        CDrawContext* context = createPixmanContext(*surface_);
        context->beginDraw();
        list()->draw(*context);
        context->endDraw();
        context->forget();
        isExposed_ = true;
    }
    if (!isExposed_)
        return;
    isExposed_ = false;
    canvas_.send(*surface_, CRect(CPoint(0, 0), list()->size()), *window_);
    x11_.connection().flush();
}

// Events

CPoint X11Menu::inMenu(int x, int y) const {
    const double scale = x11_.getScaleFactor();
    return {x / scale, y / scale};
}

bool X11Menu::isOurs(const xcb_generic_event_t& event) const {
    switch (typeOf(event)) {
    case XCB_EXPOSE:
        return window_ && eventAs<xcb_expose_event_t>(event).window == window_->id();
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
    case XCB_MOTION_NOTIFY:
    case XCB_LEAVE_NOTIFY: // the same place in all of them
        return window_ && eventAs<xcb_button_press_event_t>(event).event == window_->id();
    default:
        return false;
    }
}

bool X11Menu::handle(const xcb_generic_event_t& event) {
    if (presses_ && presses_->isPress(event))
        return wasPressed_ = true;
    if (!isOurs(event))
        return false;
    const CBaseObjectGuard self(this);
    const auto& mouse = eventAs<xcb_button_press_event_t>(event);
    switch (typeOf(event)) {
    case XCB_EXPOSE:
        isExposed_ = true;
        break;
    case XCB_BUTTON_PRESS:
        pressed(mouse);
        break;
    case XCB_BUTTON_RELEASE:
        if (buttonBit(mouse.detail) != 0)
            menuMouseUp(inMenu(mouse.event_x, mouse.event_y));
        break;
    case XCB_MOTION_NOTIFY:
        menuMouseMoved(inMenu(mouse.event_x, mouse.event_y), buttonsOf(mouse.state));
        break;
    default:
        menuMouseLeft();
        break;
    }
    return true;
}

void X11Menu::pressed(const xcb_button_press_event_t& press) {
    if (const auto notch = wheelNotchOf(press.detail))
        return menuWheel(notch->distance);
    wasPressed_ = false; // that was this one
    if (buttonBit(press.detail) != 0)
        menuMouseDown(inMenu(press.event_x, press.event_y));
}

// Between events

void X11Menu::pump() {
    const CBaseObjectGuard self(this);
    closeOnPressElsewhere();
    if (list() && currentTickMs() - pulsedMs_ >= kScrollMs) {
        pulsedMs_ = currentTickMs();
        menuPulse();
    }
}

/// A press on the menu or the frame comes as an event; all others belong to other windows.
void X11Menu::closeOnPressElsewhere() {
    if (!window_ || !std::exchange(wasPressed_, false))
        return;
    xcb_connection_t* const xcb = x11_.connection().xcb();
    const auto pointer =
        owned(xcb_query_pointer_reply(xcb, xcb_query_pointer(xcb, window_->id()), nullptr));
    if (!pointer)
        return;
    const CPoint where = inMenu(pointer->win_x, pointer->win_y);
    CPoint inFrame;
    CRect frameArea;
    x11_.getSize(frameArea);
    const bool isOnMenu = CRect(CPoint(0, 0), list()->size()).pointInside(where);
    const bool isOnFrame = x11_.getCurrentMousePosition(inFrame) && frameArea.pointInside(inFrame);
    if (!isOnMenu && !isOnFrame)
        menuMouseDown(where);
}

} // namespace VSTGUI
