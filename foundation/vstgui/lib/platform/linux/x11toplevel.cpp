#include "vstgui/lib/platform/linux/x11toplevel.h"

#include <cstring>

#include "vstgui/lib/platform/linux/brokenpipeguard.h"

namespace VSTGUI {

namespace {

/// Deeper than any host nests its windows.
constexpr int kMaxDepth = 32;

/// The atom of the window manager's mark.
xcb_atom_t managedMark(xcb_connection_t* xcb) {
    constexpr const char* kName = "WM_STATE";
    const auto reply = owned(xcb_intern_atom_reply(
        xcb, xcb_intern_atom(xcb, 1, static_cast<uint16_t>(std::strlen(kName)), kName), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool hasProperty(xcb_connection_t* xcb, xcb_window_t window, xcb_atom_t name) {
    const auto reply = owned(xcb_get_property_reply(
        xcb, xcb_get_property(xcb, 0, window, name, XCB_ATOM_ANY, 0, 0), nullptr));
    return reply && reply->type != XCB_ATOM_NONE;
}

} // namespace

xcb_window_t topLevelAround(const X11Connection& connection, xcb_window_t window) {
    const BrokenPipeGuard guard;
    xcb_connection_t* const xcb = connection.xcb();
    const xcb_atom_t mark = managedMark(xcb);
    for (int depth = 0; depth < kMaxDepth; ++depth) {
        if (mark != XCB_ATOM_NONE && hasProperty(xcb, window, mark))
            return window;
        const auto tree = owned(xcb_query_tree_reply(xcb, xcb_query_tree(xcb, window), nullptr));
        if (!tree || tree->parent == tree->root || tree->parent == XCB_NONE)
            return window;
        window = tree->parent;
    }
    return window;
}

} // namespace VSTGUI
