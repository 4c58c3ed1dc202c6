#include "vstgui/lib/platform/linux/x11window.h"

namespace VSTGUI {

namespace {

constexpr uint32_t kFrameEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                  XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                  XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW |
                                  XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_EXPOSURE |
                                  XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

constexpr uint32_t kPopupEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                  XCB_EVENT_MASK_LEAVE_WINDOW | XCB_EVENT_MASK_POINTER_MOTION |
                                  XCB_EVENT_MASK_EXPOSURE;

bool hasOurColours(const xcb_visualtype_t& visual) {
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xFF0000 &&
           visual.green_mask == 0x00FF00 && visual.blue_mask == 0x0000FF;
}

bool hasFourBytesAPixel(const X11Connection& connection, uint8_t depth) {
    auto formats = xcb_setup_pixmap_formats_iterator(xcb_get_setup(connection.xcb()));
    for (; formats.rem > 0; xcb_format_next(&formats))
        if (formats.data->depth == depth)
            return formats.data->bits_per_pixel == 32;
    return false;
}

} // namespace

X11Window::X11Window(X11Connection& connection, const xcb_screen_t& screen, uint8_t depth)
    : connection_(connection), screen_(screen), depth_(depth) {}

X11Window::~X11Window() {
    xcb_connection_t* const xcb = connection_.xcb();
    if (gc_ != XCB_NONE)
        xcb_free_gc(xcb, gc_);
    if (id_ != XCB_NONE && !isDestroyed_)
        xcb_destroy_window(xcb, id_);
    if (colormap_ != XCB_NONE)
        xcb_free_colormap(xcb, colormap_);
    connection_.flush();
}

/// Keeps depth and visual where they serve, else finds others with 24 bits of colour: without alpha
/// before with it. A screen of 30 or 16 bits has the latter alone, and the server converts.
bool X11Window::findPixels(const X11Connection& connection, const xcb_screen_t& screen,
                           Pixels& pixels) {
    const Pixels wanted = pixels;
    bool found = false;
    auto depths = xcb_screen_allowed_depths_iterator(&screen);
    for (; depths.rem > 0; xcb_depth_next(&depths)) {
        const uint8_t depth = depths.data->depth;
        if ((depth != 24 && depth != 32) || !hasFourBytesAPixel(connection, depth))
            continue;
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (!hasOurColours(*visuals.data))
                continue;
            const Pixels here{depth, visuals.data->visual_id};
            if (here.visual == wanted.visual && here.depth == wanted.depth) {
                pixels = here;
                return true;
            }
            if (!found || (pixels.depth == 32 && depth == 24)) {
                pixels = here;
                found = true;
            }
        }
    }
    return found;
}

std::unique_ptr<X11Window> X11Window::child(X11Connection& connection, xcb_window_t parent,
                                            const X11Place& place) {
    xcb_connection_t* const xcb = connection.xcb();
    const auto askedGeometry = xcb_get_geometry(xcb, parent);
    const auto askedAttributes = xcb_get_window_attributes(xcb, parent);
    const auto geometry = owned(xcb_get_geometry_reply(xcb, askedGeometry, nullptr));
    const auto attributes = owned(xcb_get_window_attributes_reply(xcb, askedAttributes, nullptr));
    const xcb_screen_t* const screen = geometry ? connection.screenOf(geometry->root) : nullptr;
    if (!attributes || !screen)
        return nullptr;
    Pixels pixels{geometry->depth, attributes->visual};
    if (!findPixels(connection, *screen, pixels))
        return nullptr;
    std::unique_ptr<X11Window> window(new X11Window(connection, *screen, pixels.depth));
    return window->create(parent, pixels.visual, place, false, kFrameEvents) ? std::move(window)
                                                                             : nullptr;
}

std::unique_ptr<X11Window> X11Window::popup(X11Connection& connection, const xcb_screen_t& screen,
                                            const X11Place& place) {
    Pixels pixels{screen.root_depth, screen.root_visual};
    if (!findPixels(connection, screen, pixels))
        return nullptr;
    std::unique_ptr<X11Window> window(new X11Window(connection, screen, pixels.depth));
    if (!window->create(screen.root, pixels.visual, place, true, kPopupEvents))
        return nullptr;
    const xcb_atom_t type = connection.atom(Atom::WindowTypePopupMenu); // for its shadow
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, window->id_,
                        connection.atom(Atom::WindowType), XCB_ATOM_ATOM, 32, 1, &type);
    return window;
}

bool X11Window::create(xcb_window_t parent, xcb_visualid_t visual, const X11Place& place,
                       bool isUnmanaged, uint32_t eventMask) {
    xcb_connection_t* const xcb = connection_.xcb();
    uint32_t colormap = screen_.default_colormap;
    if (visual != screen_.root_visual)
        colormap = colormap_ = xcb_generate_id(xcb);
    if (colormap_ != XCB_NONE)
        xcb_create_colormap(xcb, XCB_COLORMAP_ALLOC_NONE, colormap_, screen_.root, visual);

    // No background: the server would flash it before each picture. A border pixel and a colour
    // map have to be named where the depth is not the parent's.
    const uint32_t values[] = {0, isUnmanaged ? 1U : 0U, eventMask, colormap};
    id_ = xcb_generate_id(xcb);
    const auto created = xcb_create_window_checked(
        xcb, depth_, id_, parent, place.x, place.y, place.width, place.height, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
        XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
        values);
    if (!connection_.succeeded(created)) {
        id_ = XCB_NONE;
        return false;
    }
    constexpr uint32_t kNoExposures = 0;
    gc_ = xcb_generate_id(xcb);
    xcb_create_gc(xcb, gc_, id_, XCB_GC_GRAPHICS_EXPOSURES, &kNoExposures);
    return true;
}

void X11Window::map() {
    xcb_map_window(connection_.xcb(), id_);
}

void X11Window::resize(uint16_t width, uint16_t height) {
    const uint32_t size[] = {width, height};
    xcb_configure_window(connection_.xcb(), id_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         size);
}

} // namespace VSTGUI
