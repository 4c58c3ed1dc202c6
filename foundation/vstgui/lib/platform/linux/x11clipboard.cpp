#include "vstgui/lib/platform/linux/x11clipboard.h"

#include <iterator>
#include <utility>

#include "vstgui/lib/platform/iplatformframe.h"
#include "vstgui/lib/platform/linux/brokenpipeguard.h"

namespace VSTGUI {

xcb_atom_t X11Clipboard::nameOf(Kind kind) const {
    return kind == Kind::Copied ? connection_.atom(Atom::Clipboard) : xcb_atom_t{XCB_ATOM_PRIMARY};
}

X11Clipboard::Selection* X11Clipboard::selectionOf(xcb_atom_t name) {
    for (const Kind kind : {Kind::Copied, Kind::Selected})
        if (nameOf(kind) == name)
            return &selection(kind);
    return nullptr;
}

// Ours, for others

void X11Clipboard::setText(Kind kind, const std::string& text) {
    // The time is that of the last event here, which may lie before what another program took
    // meanwhile: keys that come by way of the host have none. The server's own is never too early.
    if (!own(kind, text, connection_.lastTime()))
        own(kind, text, XCB_CURRENT_TIME);
}

bool X11Clipboard::own(Kind kind, const std::string& text, xcb_timestamp_t time) {
    const BrokenPipeGuard guard;
    xcb_connection_t* const xcb = connection_.xcb();
    xcb_set_selection_owner(xcb, window_, nameOf(kind), time);
    const auto reply = owned(
        xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, nameOf(kind)), nullptr));
    const bool isOwned = reply && reply->owner == window_;
    selection(kind) = isOwned ? Selection{text, true, time} : Selection{};
    return isOwned;
}

void X11Clipboard::answer(const xcb_selection_request_event_t& request) {
    const Selection* const wanted = selectionOf(request.selection);
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    const bool isProvided = wanted && wanted->isOwned && provide(*wanted, request);
    notice.property = isProvided ? request.property : xcb_atom_t{XCB_ATOM_NONE};
    xcb_send_event(connection_.xcb(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notice));
}

bool X11Clipboard::provide(const Selection& selection,
                           const xcb_selection_request_event_t& request) {
    const auto store = [&](xcb_atom_t type, uint8_t bits, std::size_t count, const void* data) {
        xcb_change_property(connection_.xcb(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, type, bits, static_cast<uint32_t>(count), data);
        return true;
    };
    const xcb_atom_t utf8 = connection_.atom(Atom::Utf8String);
    const xcb_atom_t plain = connection_.atom(Atom::TextPlainUtf8);
    if (request.target == utf8 || request.target == plain)
        return store(request.target, 8, selection.text.size(), selection.text.data());
    if (request.target == connection_.atom(Atom::Targets)) {
        const xcb_atom_t targets[] = {request.target, connection_.atom(Atom::Timestamp), utf8,
                                      plain};
        return store(XCB_ATOM_ATOM, 32, std::size(targets), targets);
    }
    if (request.target == connection_.atom(Atom::Timestamp))
        return store(XCB_ATOM_INTEGER, 32, 1, &selection.since);
    return false;
}

// Others', for us

void X11Clipboard::requestText(Kind kind, Receiver receiver) {
    if (const Selection& own = selection(kind); own.isOwned) {
        receiver(std::string(own.text));
        return;
    }
    receiver_ = std::move(receiver);
    requested_ = nameOf(kind);
    askedMs_ = currentTickMs();
    const xcb_atom_t property = connection_.atom(Atom::Transfer);
    xcb_delete_property(connection_.xcb(), window_, property); // of a request that was given up
    xcb_convert_selection(connection_.xcb(), window_, requested_,
                          connection_.atom(Atom::Utf8String), property, connection_.lastTime());
    connection_.flush();
}

void X11Clipboard::dropLateRequest() {
    if (receiver_ && currentTickMs() - askedMs_ > kPatienceMs)
        receiver_ = nullptr;
}

/// Also for a refusal, and for a text that would come in pieces: that is no name.
void X11Clipboard::arrived(const xcb_selection_notify_event_t& notice) {
    if (!receiver_ || notice.selection != requested_)
        return; // of an older request
    const Receiver receiver = std::exchange(receiver_, nullptr);
    if (notice.property == XCB_ATOM_NONE)
        return;
    const auto text = takeProperty();
    if (text && text->type == connection_.atom(Atom::Utf8String) && text->format == 8)
        receiver({static_cast<const char*>(xcb_get_property_value(text.get())),
                  static_cast<std::size_t>(xcb_get_property_value_length(text.get()))});
}

/// Takes it away as a whole, but no more than `kMostTextBytes` of it come over.
XcbOwned<xcb_get_property_reply_t> X11Clipboard::takeProperty() {
    xcb_connection_t* const xcb = connection_.xcb();
    const xcb_atom_t name = connection_.atom(Atom::Transfer);
    const auto asked =
        xcb_get_property(xcb, 0, window_, name, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostTextBytes / 4);
    xcb_delete_property(xcb, window_, name);
    return owned(xcb_get_property_reply(xcb, asked, nullptr));
}

bool X11Clipboard::handle(const xcb_generic_event_t& event) {
    switch (typeOf(event)) {
    case XCB_SELECTION_REQUEST:
        answer(eventAs<xcb_selection_request_event_t>(event));
        return true;
    case XCB_SELECTION_CLEAR:
        if (Selection* const lost =
                selectionOf(eventAs<xcb_selection_clear_event_t>(event).selection))
            *lost = {};
        return true;
    case XCB_SELECTION_NOTIFY:
        arrived(eventAs<xcb_selection_notify_event_t>(event));
        return true;
    default:
        return false;
    }
}

} // namespace VSTGUI
