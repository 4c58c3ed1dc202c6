// What happens to a frame's window, told to the frame.

#include "vstgui/lib/platform/linux/x11frame.h"

#include <utility>

#include "vstgui/lib/platform/linux/brokenpipeguard.h"
#include "vstgui/lib/platform/linux/x11menu.h"

namespace VSTGUI {

namespace {

/// After this long the host has its turn again, whatever still waits: events may come faster than
/// they are worked off.
constexpr uint64_t kLongestPumpMs = 20;

/// Window managers give the focus to the host's window at each press and then let the press
/// through, with which it comes back here. Only a loss that lasts longer closes fields and lists.
constexpr uint64_t kFocusPauseMs = 100;

/// The server knows of these whether they are held.
constexpr int32_t kAskedButtons = kLButton | kMButton | kRButton;

} // namespace

void X11Frame::pumpEvents() {
    const CBaseObjectGuard self(this);
    const auto pointer = held_ != 0 ? queryPointer() : nullptr;
    auto first = connection_->nextEvent(); // all from before that answer have arrived
    if (pointer && !first)
        releaseLost(buttonsOf(pointer->mask));
    clipboard_.dropLateRequest();
    if (first || menu_)
        pumpAll(std::move(first));
    if (isFocusLeaving_ && currentTickMs() - focusLeftMs_ > kFocusPauseMs)
        believeFocusLeft();
    if (window_ && !connection_->isAlive()) {
        cancelMenu();
        releaseLost({});
    }
}

void X11Frame::pumpAll(XcbOwned<xcb_generic_event_t> first) {
    const BrokenPipeGuard guard;
    const uint64_t beganMs = currentTickMs();
    for (auto event = std::move(first); event;) {
        takeEvent(*event);
        const bool goesOn = !isClosed() && currentTickMs() - beganMs < kLongestPumpMs;
        event = goesOn ? connection_->nextEvent() : nullptr;
    }
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
    releaseLost({});
}

void X11Frame::cancelMenu() {
    if (menu_)
        menu_->cancel();
}

// Mouse

CPoint X11Frame::logical(int x, int y) const {
    return {x / getScaleFactor(), y / getScaleFactor()};
}

CPoint X11Frame::note(int x, int y, const CButtonState& buttons) {
    lastMouse_ = logical(x, y);
    lastButtons_ = buttons;
    CRect window;
    getSize(window);
    window.originize();
    isMouseAway_ = buttons.getButtonState() == 0 && !window.pointInside(lastMouse_);
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
    releaseLost(buttons);
    takeFocus();
    if (!isSent(press.response_type))
        held_ |= button & kAskedButtons;
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
    held_ &= ~button;
    sendMouseUp(note(release.event_x, release.event_y, buttons), buttons);
}

void X11Frame::moved(const xcb_motion_notify_event_t& motion) {
    if (menu_ && menu_->handle(reinterpret_cast<const xcb_generic_event_t&>(motion)))
        return;
    if (!window_ || motion.event != window_->id())
        return; // over a menu that is gone
    const CButtonState buttons = buttonsOf(motion.state);
    releaseLost(buttons);
    sendMouseMoved(note(motion.event_x, motion.event_y, buttons), buttons);
}

/// A release is not told when the window is hidden or gone during a drag. Its control still has to
/// hear of it: the host's edit would stay open.
void X11Frame::releaseLost(const CButtonState& stillHeld) {
    const int32_t held = held_ & stillHeld.getButtonState();
    if (held == held_)
        return;
    held_ = held;
    lastButtons_ = stillHeld;
    sendMouseUp(lastMouse_, stillHeld);
}

void X11Frame::left(const xcb_leave_notify_event_t& crossing) {
    if (!window_ || crossing.event != window_->id() ||
        crossing.detail == XCB_NOTIFY_DETAIL_INFERIOR)
        return;
    const CButtonState buttons = buttonsOf(crossing.state);
    const CPoint where = note(crossing.event_x, crossing.event_y, buttons);
    isMouseAway_ = buttons.getButtonState() == 0; // another window may lie over the place
    sendMouseExited(where, buttons);
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
    // An open field or menu has them all the same: some hosts keep the focus to themselves.
    if (!hasKeyboard() && !overlay() && !isSent(press.response_type)) {
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
    if (!hasKeyboard() && !isSent(release.response_type) && !wasUsed) {
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
    const uint32_t mask =
        key.response_type == XCB_KEY_PRESS ? XCB_EVENT_MASK_KEY_PRESS : XCB_EVENT_MASK_KEY_RELEASE;
    xcb_key_press_event_t sent = key;
    sent.event = listenerAround(mask);
    sent.child = XCB_NONE;
    if (sent.event != XCB_NONE)
        xcb_send_event(connection_->xcb(), 0, sent.event, mask,
                       reinterpret_cast<const char*>(&sent));
}

/// The nearest window around ours in which a program listens to such events. The server could find
/// it too, but would not write it into the event, and toolkits drop an event for a window that is
/// not theirs: GTK's socket for instance has a window of the host's between itself and ours.
xcb_window_t X11Frame::listenerAround(uint32_t mask) const {
    xcb_connection_t* const xcb = connection_->xcb();
    for (xcb_window_t window = parent_;;) {
        const auto askedAttributes = xcb_get_window_attributes(xcb, window);
        const auto askedTree = xcb_query_tree(xcb, window);
        const auto attributes =
            owned(xcb_get_window_attributes_reply(xcb, askedAttributes, nullptr));
        const auto tree = owned(xcb_query_tree_reply(xcb, askedTree, nullptr));
        if (!attributes || !tree || window == tree->root)
            return XCB_NONE;
        if (attributes->all_event_masks & mask)
            return window;
        window = tree->parent;
    }
}

void X11Frame::focusChanged(const xcb_focus_in_event_t& change, bool hasFocus) {
    const bool isByGrab =
        change.mode == XCB_NOTIFY_MODE_GRAB || change.mode == XCB_NOTIFY_MODE_UNGRAB;
    const bool isOfPointer = change.detail == XCB_NOTIFY_DETAIL_POINTER ||
                             change.detail == XCB_NOTIFY_DETAIL_POINTER_ROOT ||
                             change.detail == XCB_NOTIFY_DETAIL_NONE;
    if (isByGrab || isOfPointer || change.detail == XCB_NOTIFY_DETAIL_INFERIOR)
        return;
    isFocusLeaving_ = !hasFocus;
    focusLeftMs_ = currentTickMs();
    if (hasFocus)
        activate(true);
}

void X11Frame::believeFocusLeft() {
    isFocusLeaving_ = false;
    activate(false);
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

} // namespace VSTGUI
