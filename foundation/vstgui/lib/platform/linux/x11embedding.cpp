#include "vstgui/lib/platform/linux/x11embedding.h"

namespace VSTGUI {

namespace {

constexpr uint32_t kVersion = 1;
constexpr uint32_t kMapped = 1; // hosts of today leave a window without it unseen

enum EmbedMessage : uint32_t {
    kEmbeddedNotify = 0,
    kRequestFocus = 3,
    kFocusIn = 4,
    kFocusOut = 5,
};

} // namespace

void X11Embedding::announce(xcb_window_t window) {
    const uint32_t info[] = {kVersion, kMapped};
    const xcb_atom_t name = connection_.atom(Atom::XEmbedInfo);
    xcb_change_property(connection_.xcb(), XCB_PROP_MODE_REPLACE, window, name, name, 32, 2, info);
}

std::optional<X11Embedding::Focus> X11Embedding::read(const xcb_client_message_event_t& message) {
    if (message.type != connection_.atom(Atom::XEmbed) || message.format != 32)
        return std::nullopt;
    switch (message.data.data32[1]) {
    case kEmbeddedNotify:
        embedder_ = message.data.data32[3];
        return std::nullopt;
    case kFocusIn:
        return Focus::Given;
    case kFocusOut:
        return Focus::Taken;
    default:
        return std::nullopt;
    }
}

void X11Embedding::requestFocus() {
    if (embedder_ == XCB_NONE)
        return;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = embedder_;
    message.type = connection_.atom(Atom::XEmbed);
    message.data.data32[0] = connection_.lastTime();
    message.data.data32[1] = kRequestFocus;
    xcb_send_event(connection_.xcb(), 0, embedder_, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
}

} // namespace VSTGUI
