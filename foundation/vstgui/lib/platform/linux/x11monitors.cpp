#include "vstgui/lib/platform/linux/x11monitors.h"

#include <xcb/randr.h>

namespace VSTGUI {

namespace {

/// Null from a server without the extension or before its version 1.5.
XcbOwned<xcb_randr_get_monitors_reply_t> getMonitors(xcb_connection_t* xcb, xcb_window_t root) {
    constexpr uint8_t kActiveAlone = 1;
    const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(xcb, &xcb_randr_id);
    if (!extension || !extension->present)
        return nullptr;
    xcb_generic_error_t* error = nullptr;
    auto reply = owned(
        xcb_randr_get_monitors_reply(xcb, xcb_randr_get_monitors(xcb, root, kActiveAlone), &error));
    owned(error);
    return reply;
}

} // namespace

CRect monitorAround(const X11Connection& connection, const xcb_screen_t& screen,
                    const CPoint& point) {
    if (const auto reply = getMonitors(connection.xcb(), screen.root)) {
        auto monitors = xcb_randr_get_monitors_monitors_iterator(reply.get());
        for (; monitors.rem > 0; xcb_randr_monitor_info_next(&monitors)) {
            const xcb_randr_monitor_info_t& monitor = *monitors.data;
            const CRect area(CPoint(monitor.x, monitor.y), CPoint(monitor.width, monitor.height));
            if (area.pointInside(point))
                return area;
        }
    }
    return CRect(0, 0, screen.width_in_pixels, screen.height_in_pixels);
}

} // namespace VSTGUI
