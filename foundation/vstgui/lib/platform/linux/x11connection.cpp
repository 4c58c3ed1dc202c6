#include "vstgui/lib/platform/linux/x11connection.h"

#include <cstring>

#include "vstgui/lib/platform/linux/brokenpipeguard.h"

namespace VSTGUI {

namespace {

// clang-format off
constexpr std::array<const char*, static_cast<std::size_t>(Atom::Count)> kAtomNames{
    "CLIPBOARD",
    "UTF8_STRING",
    "text/plain;charset=utf-8",
    "TARGETS",
    "TIMESTAMP",
    "_VSTGUI_TRANSFER",
    "_XEMBED",
    "_XEMBED_INFO",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
};
// clang-format on

} // namespace

std::unique_ptr<X11Connection> X11Connection::open() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    std::unique_ptr<X11Connection> opened(new X11Connection(connection));
    return opened->isAlive() && opened->internAtoms() ? std::move(opened) : nullptr;
}

X11Connection::~X11Connection() {
    xcb_disconnect(connection_); // one that failed has to be given back too
}

/// Asks for all before it waits for the first.
bool X11Connection::internAtoms() {
    std::array<xcb_intern_atom_cookie_t, kAtomNames.size()> asked;
    for (std::size_t i = 0; i < asked.size(); ++i)
        asked[i] = xcb_intern_atom(connection_, 0, static_cast<uint16_t>(strlen(kAtomNames[i])),
                                   kAtomNames[i]);
    bool found = true;
    for (std::size_t i = 0; i < asked.size(); ++i) {
        const auto reply = owned(xcb_intern_atom_reply(connection_, asked[i], nullptr));
        atoms_[i] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        found = found && reply;
    }
    return found;
}

const xcb_screen_t* X11Connection::screenOf(xcb_window_t root) const {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    for (; screens.rem > 0; xcb_screen_next(&screens))
        if (screens.data->root == root)
            return screens.data;
    return nullptr;
}

XcbOwned<xcb_generic_event_t> X11Connection::nextEvent() {
    for (;;) {
        auto event = owned(xcb_poll_for_event(connection_));
        if (event && event->response_type == 0)
            continue; // an error: its window went before the request arrived
        if (event)
            noteTime(*event);
        return event;
    }
}

void X11Connection::noteTime(const xcb_generic_event_t& event) {
    switch (typeOf(event)) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
    case XCB_MOTION_NOTIFY:
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY: // the same place in all of them
        lastTime_ = eventAs<xcb_key_press_event_t>(event).time;
        break;
    default:
        break;
    }
}

void X11Connection::flush() {
    const BrokenPipeGuard guard;
    xcb_flush(connection_);
}

bool X11Connection::succeeded(xcb_void_cookie_t request) const {
    return !owned(xcb_request_check(connection_, request)) && isAlive();
}

} // namespace VSTGUI
