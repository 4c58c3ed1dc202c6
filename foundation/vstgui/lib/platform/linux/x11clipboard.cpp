#include "vstgui/lib/platform/linux/x11clipboard.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "foundation/text/Utf8.h"
#include "vstgui/lib/platform/iplatformframe.h"
#include "vstgui/lib/platform/linux/brokenpipeguard.h"

namespace VSTGUI {

namespace {

constexpr char32_t kLastLatin1 = 0xFF;

std::string utf8FromLatin1(const std::string& text) {
    std::string utf8;
    for (const char byte : text)
        utf8 += pedl::utf8Of(static_cast<unsigned char>(byte));
    return utf8;
}

std::string latin1FromUtf8(const std::string& text) {
    std::string latin1;
    for (std::string_view rest = text; !rest.empty();) {
        const char32_t character = pedl::takeAnyCharacter(rest);
        latin1 += character <= kLastLatin1 ? static_cast<char>(character) : '?';
    }
    return latin1;
}

} // namespace

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
    // Old programs name no property and expect the target's name.
    const xcb_atom_t property =
        request.property == XCB_ATOM_NONE ? request.target : request.property;
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property =
        wanted && wanted->isOwned && provide(*wanted, request, property) ? property : 0;
    xcb_send_event(connection_.xcb(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&notice));
}

bool X11Clipboard::provide(const Selection& selection, const xcb_selection_request_event_t& request,
                           xcb_atom_t property) {
    const auto store = [&](xcb_atom_t type, uint8_t bits, std::size_t count, const void* data) {
        xcb_change_property(connection_.xcb(), XCB_PROP_MODE_REPLACE, request.requestor, property,
                            type, bits, static_cast<uint32_t>(count), data);
        return true;
    };
    const xcb_atom_t utf8 = connection_.atom(Atom::Utf8String);
    const xcb_atom_t plain = connection_.atom(Atom::TextPlainUtf8);
    const xcb_atom_t anyText = connection_.atom(Atom::Text);
    if (request.target == utf8 || request.target == plain || request.target == anyText)
        return store(request.target == plain ? plain : utf8, 8, selection.text.size(),
                     selection.text.data());
    if (request.target == XCB_ATOM_STRING) {
        const std::string latin1 = latin1FromUtf8(selection.text);
        return store(XCB_ATOM_STRING, 8, latin1.size(), latin1.data());
    }
    if (request.target == connection_.atom(Atom::Targets)) {
        const xcb_atom_t targets[] = {request.target,
                                      connection_.atom(Atom::Timestamp),
                                      connection_.atom(Atom::Multiple),
                                      utf8,
                                      plain,
                                      anyText,
                                      XCB_ATOM_STRING};
        return store(XCB_ATOM_ATOM, 32, std::size(targets), targets);
    }
    if (request.target == connection_.atom(Atom::Timestamp))
        return store(XCB_ATOM_INTEGER, 32, 1, &selection.since);
    if (request.target == connection_.atom(Atom::Multiple))
        return provideEach(selection, request, property);
    return false;
}

/// The property holds pairs of a target and the property for it. Those that cannot be had are
/// marked in it.
bool X11Clipboard::provideEach(const Selection& selection,
                               const xcb_selection_request_event_t& request, xcb_atom_t property) {
    constexpr uint32_t kMostPairs = 32; // there are a few targets
    xcb_connection_t* const xcb = connection_.xcb();
    const auto asked = xcb_get_property(xcb, 0, request.requestor, property,
                                        XCB_GET_PROPERTY_TYPE_ANY, 0, 2 * kMostPairs);
    const auto reply = owned(xcb_get_property_reply(xcb, asked, nullptr));
    if (!reply || reply->format != 32 || reply->bytes_after != 0)
        return false;
    auto* const atoms = static_cast<xcb_atom_t*>(xcb_get_property_value(reply.get()));
    const uint32_t count = reply->value_len & ~1U;
    for (uint32_t i = 0; i < count; i += 2) {
        xcb_selection_request_event_t single = request;
        single.target = atoms[i];
        xcb_atom_t& place = atoms[i + 1];
        const bool isNested = single.target == request.target;
        if (isNested || place == XCB_ATOM_NONE || !provide(selection, single, place))
            place = XCB_ATOM_NONE;
    }
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, request.requestor, property,
                        connection_.atom(Atom::AtomPair), 32, count, atoms);
    return true;
}

// Others', for us

void X11Clipboard::requestText(Kind kind, Receiver receiver) {
    if (const Selection& own = selection(kind); own.isOwned) {
        receiver(std::string(own.text));
        return;
    }
    receiver_ = std::move(receiver);
    requested_ = nameOf(kind);
    received_.clear();
    comesInPieces_ = false;
    askedMs_ = currentTickMs();
    convert(connection_.atom(Atom::Utf8String));
}

void X11Clipboard::convert(xcb_atom_t target) {
    target_ = target;
    const xcb_atom_t property = connection_.atom(Atom::Transfer);
    xcb_delete_property(connection_.xcb(), window_, property); // of a request that was given up
    xcb_convert_selection(connection_.xcb(), window_, requested_, target, property,
                          connection_.lastTime());
    connection_.flush();
}

void X11Clipboard::dropLateRequest() {
    if (receiver_ && currentTickMs() - askedMs_ > kPatienceMs)
        receiver_ = nullptr;
}

void X11Clipboard::arrived(const xcb_selection_notify_event_t& notice) {
    if (!receiver_ || notice.selection != requested_ || notice.target != target_)
        return; // of an older request
    if (notice.property == XCB_ATOM_NONE) {
        if (target_ == connection_.atom(Atom::Utf8String))
            convert(XCB_ATOM_STRING);
        else
            receiver_ = nullptr;
        return;
    }
    const auto property = takeProperty();
    if (!property)
        return;
    if (property->type == connection_.atom(Atom::Incr)) {
        comesInPieces_ = true; // taking the property away asks for the first
        return;
    }
    append(*property);
    deliver();
}

/// @return whether it was a piece of a long text; an empty one is its end
bool X11Clipboard::pieceArrived(const xcb_property_notify_event_t& notice) {
    if (notice.window != window_ || notice.atom != connection_.atom(Atom::Transfer))
        return false;
    if (!receiver_ || !comesInPieces_ || notice.state != XCB_PROPERTY_NEW_VALUE)
        return true;
    askedMs_ = currentTickMs();
    const auto property = takeProperty();
    if (!property)
        return true;
    append(*property);
    // More than fits is not asked for: it may have no end.
    if (xcb_get_property_value_length(property.get()) == 0 || received_.size() >= kMostTextBytes)
        deliver();
    return true;
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

void X11Clipboard::append(const xcb_get_property_reply_t& property) {
    if (property.format != 8)
        return;
    const auto* const bytes = static_cast<const char*>(xcb_get_property_value(&property));
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(&property));
    received_.append(bytes, std::min(length, kMostTextBytes - received_.size()));
}

void X11Clipboard::deliver() {
    const Receiver receiver = std::exchange(receiver_, nullptr);
    const std::string text =
        target_ == XCB_ATOM_STRING ? utf8FromLatin1(received_) : std::exchange(received_, {});
    receiver(text);
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
    case XCB_PROPERTY_NOTIFY:
        return pieceArrived(eventAs<xcb_property_notify_event_t>(event));
    default:
        return false;
    }
}

} // namespace VSTGUI
