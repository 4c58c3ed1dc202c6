#include "vstgui/lib/platform/linux/x11frame.h"

#include <utility>

#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/linux/brokenpipeguard.h"
#include "vstgui/lib/platform/linux/x11menu.h"

namespace VSTGUI {

IPlatformFrame* createX11Frame(IPlatformFrameCallback* callback, const CRect& size, void* parent) {
    return X11Frame::open(callback, size,
                          static_cast<xcb_window_t>(reinterpret_cast<uintptr_t>(parent)));
}

X11Frame* X11Frame::open(IPlatformFrameCallback* callback, const CRect& size, xcb_window_t parent) {
    const BrokenPipeGuard guard;
    auto connection = X11Connection::open();
    if (!connection)
        return nullptr;
    const X11Place place{0, 0, windowPixels(size.width(), 1.0), windowPixels(size.height(), 1.0)};
    auto window = X11Window::child(*connection, parent, place);
    if (!window)
        return nullptr;
    return new X11Frame(callback, size, std::move(connection), std::move(window), parent);
}

X11Frame::X11Frame(IPlatformFrameCallback* callback, const CRect& size,
                   std::unique_ptr<X11Connection> connection, std::unique_ptr<X11Window> window,
                   xcb_window_t parent)
    : BufferedFrame(callback, size), connection_(std::move(connection)), window_(std::move(window)),
      canvas_(*connection_), cursors_(*connection_), keyboard_(*connection_),
      clipboard_(*connection_, window_->id()), embedding_(*connection_), parent_(parent) {
    embedding_.announce(window_->id());
    window_->map();
    connection_->flush();
}

X11Frame::~X11Frame() {
    const BrokenPipeGuard guard;
    dropSurface(); // before the memory that it draws on
    window_.reset();
    connection_->flush();
}

/// The window goes at once, even if a call that is under way keeps this object.
void X11Frame::frameClosed() {
    const BrokenPipeGuard guard;
    BufferedFrame::frameClosed();
    if (menu_)
        menu_->dismiss();
    window_.reset();
}

// Size

void X11Frame::resizeWindow() {
    if (!isUsable())
        return;
    const BrokenPipeGuard guard;
    CRect size;
    getSize(size);
    window_->resize(windowPixels(size.width(), getScaleFactor()),
                    windowPixels(size.height(), getScaleFactor()));
    connection_->flush();
}

bool X11Frame::setSize(const CRect& newSize) {
    BufferedFrame::setSize(newSize);
    resizeWindow();
    return true;
}

bool X11Frame::setScaleFactor(double pixelsPerUnit) {
    cancelMenu();
    BufferedFrame::setScaleFactor(pixelsPerUnit);
    resizeWindow();
    return true;
}

std::unique_ptr<PixmanSurface> X11Frame::makeSurface(CCoord width, CCoord height,
                                                     double pixelsPerUnit) {
    return canvas_.makeSurface(width, height, pixelsPerUnit);
}

CRect X11Frame::screenAround() const {
    if (!isUsable())
        return {};
    const double scale = getScaleFactor();
    return {0, 0, screen().width_in_pixels / scale, screen().height_in_pixels / scale};
}

// What the frame asks for

bool X11Frame::getGlobalPosition(CPoint& pos) const {
    if (!isUsable())
        return false;
    const BrokenPipeGuard guard;
    xcb_connection_t* const xcb = connection_->xcb();
    const auto place = owned(xcb_translate_coordinates_reply(
        xcb, xcb_translate_coordinates(xcb, window_->id(), screen().root, 0, 0), nullptr));
    if (place)
        pos = logical(place->dst_x, place->dst_y);
    return place != nullptr;
}

XcbOwned<xcb_query_pointer_reply_t> X11Frame::queryPointer() const {
    if (!isUsable())
        return nullptr;
    const BrokenPipeGuard guard;
    xcb_connection_t* const xcb = connection_->xcb();
    return owned(xcb_query_pointer_reply(xcb, xcb_query_pointer(xcb, window_->id()), nullptr));
}

bool X11Frame::getCurrentMousePosition(CPoint& where) const {
    const auto pointer = queryPointer();
    where = pointer && pointer->same_screen ? logical(pointer->win_x, pointer->win_y) : lastMouse_;
    return true;
}

bool X11Frame::getCurrentMouseButtons(CButtonState& buttons) const {
    const auto pointer = queryPointer();
    buttons = pointer ? buttonsOf(pointer->mask) : lastButtons_;
    return true;
}

bool X11Frame::setMouseCursor(CCursorType type) {
    if (!isUsable())
        return false;
    const BrokenPipeGuard guard;
    cursors_.show(type, window_->id());
    return true;
}

void* X11Frame::getPlatformRepresentation() const {
    return isUsable() ? reinterpret_cast<void*>(uintptr_t{window_->id()}) : nullptr;
}

IPlatformOptionMenu* X11Frame::createPlatformOptionMenu() {
    return isUsable() ? new X11Menu(*this) : nullptr;
}

// Events

void X11Frame::pumpEvents() {
    const CBaseObjectGuard self(this);
    auto first = connection_->nextEvent();
    clipboard_.dropLateRequest();
    if (first || menu_)
        pumpAll(std::move(first));
    if (window_ && !connection_->isAlive())
        cancelMenu();
}

void X11Frame::pumpAll(XcbOwned<xcb_generic_event_t> first) {
    const BrokenPipeGuard guard;
    for (auto event = std::move(first); event && !isClosed(); event = connection_->nextEvent())
        takeEvent(*event);
    if (!isClosed())
        deliverMotion();
    if (menu_)
        menu_->pump();
    connection_->flush();
}

/// Movements wait for the next event; everything else comes after them. The mouse's arrival is one:
/// its event begins with the same fields, and the movement that brought it follows.
void X11Frame::takeEvent(const xcb_generic_event_t& event) {
    if (typeOf(event) == XCB_MOTION_NOTIFY || typeOf(event) == XCB_ENTER_NOTIFY) {
        if (const auto earlier = motions_.add(eventAs<xcb_motion_notify_event_t>(event)))
            moved(*earlier);
        return;
    }
    deliverMotion();
    if (!isClosed())
        dispatch(event);
}

void X11Frame::deliverMotion() {
    if (const auto motion = motions_.take())
        moved(*motion);
}

void X11Frame::dispatch(const xcb_generic_event_t& event) {
    if ((menu_ && menu_->handle(event)) || clipboard_.handle(event) || keyboard_.noteChange(event))
        return;
    switch (typeOf(event)) {
    case XCB_BUTTON_PRESS:
        pressed(eventAs<xcb_button_press_event_t>(event));
        break;
    case XCB_BUTTON_RELEASE:
        released(eventAs<xcb_button_release_event_t>(event));
        break;
    case XCB_LEAVE_NOTIFY:
        left(eventAs<xcb_leave_notify_event_t>(event));
        break;
    case XCB_KEY_PRESS:
        keyPressed(eventAs<xcb_key_press_event_t>(event));
        break;
    case XCB_KEY_RELEASE:
        keyReleased(eventAs<xcb_key_release_event_t>(event));
        break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        focusChanged(eventAs<xcb_focus_in_event_t>(event), typeOf(event) == XCB_FOCUS_IN);
        break;
    case XCB_EXPOSE:
        exposed(eventAs<xcb_expose_event_t>(event));
        break;
    case XCB_CLIENT_MESSAGE:
        embeddingSays(eventAs<xcb_client_message_event_t>(event));
        break;
    case XCB_REPARENT_NOTIFY:
        parent_ = eventAs<xcb_reparent_notify_event_t>(event).parent;
        break;
    case XCB_UNMAP_NOTIFY:
        cancelMenu();
        break;
    case XCB_DESTROY_NOTIFY:
        if (eventAs<xcb_destroy_notify_event_t>(event).window == window_->id())
            destroyed();
        break;
    default:
        break;
    }
}

/// The host took its window away without closing the editor.
void X11Frame::destroyed() {
    isDestroyed_ = true;
    window_->markDestroyed();
    cancelMenu();
}

void X11Frame::cancelMenu() {
    if (menu_)
        menu_->cancel();
}

// Mouse

CPoint X11Frame::logical(int x, int y) const {
    return {x / getScaleFactor(), y / getScaleFactor()};
}

CPoint X11Frame::note(int x, int y, CButtonState buttons) {
    lastMouse_ = logical(x, y);
    lastButtons_ = buttons;
    return lastMouse_;
}

void X11Frame::pressed(const xcb_button_press_event_t& press) {
    CButtonState buttons = buttonsOf(press.state); // before the press
    if (const auto notch = wheelNotchOf(press.detail)) {
        const CPoint where = note(press.event_x, press.event_y, buttons);
        sendWheel(where, notch->axis, notch->distance, buttons);
        return;
    }
    const int32_t button = buttonBit(press.detail);
    if (button == 0)
        return;
    takeFocus();
    buttons |= button;
    const CPoint where = note(press.event_x, press.event_y, buttons);
    if (clicks_.isDoubleClick(press))
        buttons |= kDoubleClick;
    sendMouseDown(where, buttons);
}

void X11Frame::released(const xcb_button_release_event_t& release) {
    const int32_t button = buttonBit(release.detail);
    if (button == 0)
        return;                                      // the wheel
    CButtonState buttons = buttonsOf(release.state); // before the release
    buttons &= ~button;
    sendMouseUp(note(release.event_x, release.event_y, buttons), buttons);
}

void X11Frame::moved(const xcb_motion_notify_event_t& motion) {
    if (menu_ && menu_->handle(reinterpret_cast<const xcb_generic_event_t&>(motion)))
        return;
    if (!window_ || motion.event != window_->id())
        return; // over a menu that is gone
    const CButtonState buttons = buttonsOf(motion.state);
    sendMouseMoved(note(motion.event_x, motion.event_y, buttons), buttons);
}

void X11Frame::left(const xcb_leave_notify_event_t& crossing) {
    if (!window_ || crossing.event != window_->id() ||
        crossing.detail == XCB_NOTIFY_DETAIL_INFERIOR)
        return;
    const CButtonState buttons = buttonsOf(crossing.state);
    sendMouseExited(note(crossing.event_x, crossing.event_y, buttons), buttons);
}

// Keyboard

void X11Frame::takeFocus() {
    if (!isUsable())
        return;
    xcb_set_input_focus(connection_->xcb(), XCB_INPUT_FOCUS_PARENT, window_->id(),
                        connection_->lastTime());
    embedding_.requestFocus();
}

void X11Frame::keyPressed(const xcb_key_press_event_t& press) {
    // Without the focus, keys come only because the mouse is over the window: they are the host's.
    if (!hasFocus_ && !isSent(press.response_type)) {
        handOn(press);
        return;
    }
    const bool isWriting = overlay() != nullptr;
    const X11Keyboard::Key key = keyboard_.readPress(press, isWriting ? X11Keyboard::Writing::Yes
                                                                      : X11Keyboard::Writing::No);
    const bool isUsed =
        key.isPart || sendKeyDown(key.code, key.text.empty() ? nullptr : key.text.c_str());
    keysUsed_[press.detail] = isUsed;
    if (!isUsed)
        handOn(press);
}

/// Goes where the press went.
void X11Frame::keyReleased(const xcb_key_release_event_t& release) {
    const bool wasUsed = keysUsed_[release.detail];
    keysUsed_[release.detail] = false;
    if (!hasFocus_ && !isSent(release.response_type) && !wasUsed) {
        handOn(release);
        return;
    }
    const bool isUsed = sendKeyUp(keyboard_.codeOf(release));
    if (!isUsed && !wasUsed)
        handOn(release);
}

/// To the host's window, or the one around it that listens to keys. What another program sent here,
/// a host with its own focus for instance, it has had already.
void X11Frame::handOn(const xcb_key_press_event_t& key) {
    if (!isUsable() || isSent(key.response_type))
        return;
    xcb_key_press_event_t sent = key;
    sent.event = parent_;
    sent.child = window_->id();
    const uint32_t mask =
        key.response_type == XCB_KEY_PRESS ? XCB_EVENT_MASK_KEY_PRESS : XCB_EVENT_MASK_KEY_RELEASE;
    constexpr uint8_t kPropagate = 1;
    xcb_send_event(connection_->xcb(), kPropagate, parent_, mask,
                   reinterpret_cast<const char*>(&sent));
}

void X11Frame::focusChanged(const xcb_focus_in_event_t& change, bool hasFocus) {
    const bool isByGrab =
        change.mode == XCB_NOTIFY_MODE_GRAB || change.mode == XCB_NOTIFY_MODE_UNGRAB;
    const bool isOfPointer = change.detail == XCB_NOTIFY_DETAIL_POINTER ||
                             change.detail == XCB_NOTIFY_DETAIL_POINTER_ROOT ||
                             change.detail == XCB_NOTIFY_DETAIL_NONE;
    if (!isByGrab && !isOfPointer && change.detail != XCB_NOTIFY_DETAIL_INFERIOR)
        activate(hasFocus);
}

void X11Frame::embeddingSays(const xcb_client_message_event_t& message) {
    if (const auto focus = embedding_.read(message))
        activate(*focus == X11Embedding::Focus::Given);
}

void X11Frame::activate(bool state) {
    if (hasFocus_ == state)
        return;
    hasFocus_ = state;
    if (!state) {
        keysUsed_.reset(); // their releases go elsewhere
        cancelMenu();
    }
    sendActivate(state);
}

// Drawing

void X11Frame::exposed(const xcb_expose_event_t& expose) {
    const CPoint corner = logical(expose.x, expose.y);
    exposed_.push_back(CRect(corner, logical(expose.width, expose.height)));
}

void X11Frame::paintInvalid() {
    if (!isUsable()) {
        exposed_.clear();
        return;
    }
    const bool isMenuOpen = menu_ != nullptr;
    if (!isMenuOpen && exposed_.empty() && dirtyRegion().isEmpty())
        return;
    const CBaseObjectGuard self(this);
    const BrokenPipeGuard guard;
    std::vector<CRect> rects;
    if (!dirtyRegion().isEmpty()) {
        canvas_.waitUntilRead();
        rects = paintBuffer();
    }
    const std::vector<CRect> shown = std::exchange(exposed_, {});
    rects.insert(rects.end(), shown.begin(), shown.end());
    if (isUsable() && surface()) {
        for (const CRect& rect : rects)
            canvas_.send(*surface(), rect, *window_);
        connection_->flush();
    }
    if (menu_)
        menu_->paint();
}

} // namespace VSTGUI
