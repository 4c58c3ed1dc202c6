#include "vstgui/lib/platform/linux/x11cursors.h"

#include <cstring>

namespace VSTGUI {

namespace {

/// Places in the server's "cursor" font; a shape's mask follows it.
constexpr std::array<uint16_t, kCursorHand + 1> kGlyphs{
    68,  // default: left_ptr, not used
    150, // wait: watch
    108, // horizontal: sb_h_double_arrow
    116, // vertical: sb_v_double_arrow
    52,  // all directions: fleur
    12,  // north-east to south-west: bottom_left_corner
    14,  // north-west to south-east: bottom_right_corner
    90,  // copy: plus
    24,  // not allowed: circle
    60,  // hand: hand2
};

} // namespace

X11Cursors::~X11Cursors() {
    for (const xcb_cursor_t cursor : made_)
        if (cursor != XCB_CURSOR_NONE)
            xcb_free_cursor(connection_.xcb(), cursor);
}

void X11Cursors::show(CCursorType type, xcb_window_t window) {
    if (type == shown_ || type < kCursorDefault || type > kCursorHand)
        return;
    shown_ = type;
    const xcb_cursor_t cursor = made(type);
    xcb_change_window_attributes(connection_.xcb(), window, XCB_CW_CURSOR, &cursor);
    connection_.flush();
}

xcb_cursor_t X11Cursors::made(CCursorType type) {
    xcb_cursor_t& cursor = made_[static_cast<std::size_t>(type)];
    if (type == kCursorDefault || cursor != XCB_CURSOR_NONE)
        return cursor;
    xcb_connection_t* const xcb = connection_.xcb();
    constexpr char kFontName[] = "cursor";
    constexpr uint16_t kWhite = 0xFFFF;
    const xcb_font_t font = xcb_generate_id(xcb);
    const uint16_t glyph = kGlyphs[static_cast<std::size_t>(type)];
    xcb_open_font(xcb, font, sizeof(kFontName) - 1, kFontName);
    cursor = xcb_generate_id(xcb);
    xcb_create_glyph_cursor(xcb, cursor, font, font, glyph, static_cast<uint16_t>(glyph + 1), 0, 0,
                            0, kWhite, kWhite, kWhite);
    xcb_close_font(xcb, font);
    return cursor;
}

} // namespace VSTGUI
