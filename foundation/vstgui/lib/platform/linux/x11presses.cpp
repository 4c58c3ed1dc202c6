#include "vstgui/lib/platform/linux/x11presses.h"

#include <xcb/xcbext.h>

#include "vstgui/lib/platform/linux/x11mouse.h"

namespace VSTGUI {

namespace {

// The two requests and the event, as the extension's protocol has them: too few for a library.

constexpr const char kExtensionName[] = "XInputExtension";
constexpr uint8_t kSelectEvents = 46;
constexpr uint8_t kQueryVersion = 47;
constexpr uint16_t kAllMasterDevices = 1;
constexpr uint16_t kRawButtonPress = 15;

struct RequestHead {
    uint8_t extension;
    uint8_t request;
    uint16_t length; // written by libxcb
};

struct QueryVersion {
    RequestHead head;
    uint16_t major;
    uint16_t minor;
};

struct SelectEvents {
    RequestHead head;
    uint32_t window;
    uint16_t maskCount;
    uint16_t unused;
    uint16_t device;
    uint16_t maskWords;
    uint32_t mask;
};

struct RawEvent {
    uint8_t type;
    uint8_t extension;
    uint16_t sequence;
    uint32_t length;
    uint16_t kind;
    uint16_t device;
    uint32_t time;
    uint32_t detail; // the button
};

template <typename Request> unsigned int send(xcb_connection_t* xcb, Request request, bool isVoid) {
    const xcb_protocol_request_t kind{1, nullptr, request.head.extension, isVoid};
    iovec parts[3] = {{}, {}, {&request, sizeof(request)}}; // libxcb writes before the first
    return xcb_send_request(xcb, 0, parts + 2, &kind);
}

} // namespace

X11Presses::X11Presses(X11Connection& connection, xcb_window_t root)
    : connection_(connection), root_(root) {
    xcb_connection_t* const xcb = connection_.xcb();
    const auto found = owned(xcb_query_extension_reply(
        xcb, xcb_query_extension(xcb, sizeof(kExtensionName) - 1, kExtensionName), nullptr));
    if (!found || !found->present)
        return;
    extension_ = found->major_opcode;
    announceVersion();
    select(1U << kRawButtonPress);
}

X11Presses::~X11Presses() {
    if (extension_ != 0)
        select(0);
}

/// From 2.1 on presses are told while another program grabs the mouse, too. What the server has
/// itself matters to nobody: an older one refuses what it does not know.
void X11Presses::announceVersion() const {
    const QueryVersion request{{extension_, kQueryVersion, 0}, 2, 1};
    xcb_discard_reply(connection_.xcb(), send(connection_.xcb(), request, false));
}

void X11Presses::select(uint32_t events) const {
    send(connection_.xcb(),
         SelectEvents{{extension_, kSelectEvents, 0}, root_, 1, 0, kAllMasterDevices, 1, events},
         true);
}

bool X11Presses::isPress(const xcb_generic_event_t& event) const {
    if (extension_ == 0 || typeOf(event) != XCB_GE_GENERIC)
        return false;
    const auto& raw = eventAs<RawEvent>(event);
    return raw.extension == extension_ && raw.kind == kRawButtonPress &&
           !wheelNotchOf(static_cast<uint8_t>(raw.detail));
}

} // namespace VSTGUI
