#pragma once

#include <optional>

#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// What is said between our window and a host that speaks the XEmbed protocol. Most do not.
class X11Embedding {
public:
    explicit X11Embedding(X11Connection& connection) : connection_(connection) {}

    /// Before the window is mapped: says that it may be shown at once.
    void announce(xcb_window_t window);

    enum class Focus { Given, Taken };
    /// What a message to our window means for the keyboard; nothing for most.
    std::optional<Focus> read(const xcb_client_message_event_t& message);

    /// Asks the host for the keyboard, if there is one that speaks the protocol.
    void requestFocus();

private:
    X11Connection& connection_;
    xcb_window_t embedder_ = XCB_NONE; // none: it does not
};

} // namespace VSTGUI
