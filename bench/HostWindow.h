#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace pedl::bench {

/// A host's window on the display; not open where there is none.
class HostWindow {
public:
    HostWindow(std::uint16_t width, std::uint16_t height)
        : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_.get()))
            return;
        const xcb_screen_t* const screen =
            xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
        window_ = xcb_generate_id(connection_.get());
        xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0,
                          width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0,
                          nullptr);
        xcb_map_window(connection_.get(), window_);
        std::free(xcb_get_input_focus_reply(connection_.get(),
                                            xcb_get_input_focus(connection_.get()), nullptr));
    }
    [[nodiscard]] bool isOpen() const { return window_ != XCB_NONE; }
    [[nodiscard]] void* handle() const { return reinterpret_cast<void*>(uintptr_t{window_}); }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t window_ = XCB_NONE;
};

} // namespace pedl::bench
