#include "vstgui/lib/platform/linux/x11monitors.h"

#include <cstring>

#include <sys/uio.h>
#include <xcb/xcbext.h>

namespace VSTGUI {

namespace {

constexpr uint8_t kGetMonitors = 42; // since version 1.5

struct GetMonitorsRequest {
    uint8_t majorOpcode = 0, minorOpcode = 0; // filled in by the connection
    uint16_t length = 0;
    xcb_window_t window;
    uint8_t activeAlone = 1;
    uint8_t unused[3] = {};
};
static_assert(sizeof(GetMonitorsRequest) == 12);

struct GetMonitorsReply {
    uint8_t responseType, unused;
    uint16_t sequence;
    uint32_t lengthWords; // behind these 32 bytes
    uint32_t timestamp, monitors, outputs;
    uint8_t unusedToo[12];
};
static_assert(sizeof(GetMonitorsReply) == 32);

/// Followed by `outputs` numbers of four bytes.
struct Monitor {
    xcb_atom_t name;
    uint8_t isPrimary, isAutomatic;
    uint16_t outputs;
    int16_t x, y;
    uint16_t width, height;
    uint32_t widthMm, heightMm;
};
static_assert(sizeof(Monitor) == 24);

xcb_extension_t randr = {"RANDR", 0};

XcbOwned<GetMonitorsReply> getMonitors(xcb_connection_t* xcb, xcb_window_t root) {
    const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(xcb, &randr);
    if (!extension || !extension->present)
        return nullptr;
    GetMonitorsRequest request{.window = root};
    const xcb_protocol_request_t kind{1, &randr, kGetMonitors, 0};
    iovec parts[3]; // two in front are the connection's to use
    parts[2] = {&request, sizeof(request)};
    const unsigned sequence = xcb_send_request(xcb, XCB_REQUEST_CHECKED, parts + 2, &kind);
    xcb_generic_error_t* error = nullptr; // from a server before 1.5
    auto reply = owned(static_cast<GetMonitorsReply*>(xcb_wait_for_reply(xcb, sequence, &error)));
    owned(error);
    return reply;
}

} // namespace

CRect monitorAround(const X11Connection& connection, const xcb_screen_t& screen,
                    const CPoint& point) {
    const CRect whole(0, 0, screen.width_in_pixels, screen.height_in_pixels);
    const auto reply = getMonitors(connection.xcb(), screen.root);
    if (!reply)
        return whole;
    const auto* rest = reinterpret_cast<const char*>(reply.get() + 1);
    const auto* const end = rest + std::size_t{reply->lengthWords} * 4;
    for (uint32_t i = 0; i < reply->monitors; ++i) {
        Monitor monitor;
        if (end - rest < static_cast<std::ptrdiff_t>(sizeof(monitor)))
            break;
        std::memcpy(&monitor, rest, sizeof(monitor));
        rest += sizeof(monitor) + std::size_t{monitor.outputs} * 4;
        const CRect area(CPoint(monitor.x, monitor.y), CPoint(monitor.width, monitor.height));
        if (area.pointInside(point))
            return area;
    }
    return whole;
}

} // namespace VSTGUI
