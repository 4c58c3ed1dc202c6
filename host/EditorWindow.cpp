#include "host/EditorWindow.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <xcb/xcb.h>

namespace pedl {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply or event that libxcb has allocated; null when there is none, for whatever reason.
template <typename T> std::unique_ptr<T, Free> owned(T* fromServer) {
    return std::unique_ptr<T, Free>(fromServer);
}

constexpr char kClass[] = "zmt-pedlfilter\0zmt-pedlfilter"; // the instance's name and the class's
constexpr std::uint8_t kKindBits = 0x7F;                    // above them: another program sent it
constexpr int kColourDepth = 24;
constexpr std::uint8_t kColourDepthWithAlpha = 32;

/// The properties that are told to window managers, with the layout that these have fixed.
struct SizeHints {
    std::uint32_t flags = 0;
    std::array<std::int32_t, 4> obsolete{};
    std::array<std::int32_t, 2> least{};
    std::array<std::int32_t, 2> most{};
    std::array<std::int32_t, 9> unused{};
};
constexpr std::uint32_t kHasLeastSize = 1U << 4;
constexpr std::uint32_t kHasMostSize = 1U << 5;

struct FocusHints {
    std::uint32_t flags = 1; // `takesKeyboard` counts
    std::uint32_t takesKeyboard = 1;
    std::array<std::uint32_t, 7> unused{};
};

Problem noDisplay() {
    const char* const name = std::getenv("DISPLAY");
    if (name == nullptr || *name == '\0')
        return {"there is no X server to show a window on: DISPLAY is not set"};
    return {std::string("no X server answers at ") + name + ", which DISPLAY names"};
}

template <typename Value>
void setProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name,
                 xcb_atom_t type, std::uint8_t bits, const Value* values, std::size_t count) {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, name, type, bits,
                        static_cast<std::uint32_t>(count), values);
}

} // namespace

Done EditorWindow::findDisplay() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool isThere = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    if (!isThere)
        return noDisplay();
    return done();
}

Result<std::unique_ptr<EditorWindow>> EditorWindow::open(const std::string& title,
                                                         WindowSize size) {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return noDisplay();
    }
    std::unique_ptr<EditorWindow> window(new EditorWindow(connection));
    window->create(title, size);
    return window;
}

EditorWindow::EditorWindow(xcb_connection_t* connection)
    : connection_(connection), screen_(xcb_setup_roots_iterator(xcb_get_setup(connection)).data),
      window_(xcb_generate_id(connection)), protocols_(atom("WM_PROTOCOLS")),
      deleteWindow_(atom("WM_DELETE_WINDOW")), ping_(atom("_NET_WM_PING")) {}

EditorWindow::~EditorWindow() {
    xcb_disconnect(connection_); // the window goes with it
}

void EditorWindow::create(const std::string& title, WindowSize size) {
    size_ = size;
    const std::array<std::uint32_t, 2> values{screen_->black_pixel,
                                              XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen_->root, 0, 0,
                      static_cast<std::uint16_t>(size.widthPixels),
                      static_cast<std::uint16_t>(size.heightPixels), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    const auto say = [this](xcb_atom_t name, xcb_atom_t type, std::uint8_t bits,
                            const auto* content, std::size_t count) {
        setProperty(connection_, window_, name, type, bits, content, count);
    };
    const xcb_atom_t utf8 = atom("UTF8_STRING");
    say(XCB_ATOM_WM_NAME, utf8, 8, title.data(), title.size());
    say(atom("_NET_WM_NAME"), utf8, 8, title.data(), title.size());
    say(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, kClass, sizeof kClass);
    const std::array<xcb_atom_t, 2> understood{deleteWindow_, ping_};
    say(protocols_, XCB_ATOM_ATOM, 32, understood.data(), understood.size());
    const FocusHints focus;
    say(XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, &focus, sizeof focus / 4);
    fixSize();
    xcb_map_window(connection_, window_);
    xcb_flush(connection_);
}

void EditorWindow::resize(WindowSize size) {
    if (size == size_ || state_ == State::Gone)
        return;
    size_ = size;
    fixSize();
    const std::array<std::uint32_t, 2> values{static_cast<std::uint32_t>(size.widthPixels),
                                              static_cast<std::uint32_t>(size.heightPixels)};
    xcb_configure_window(connection_, window_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    xcb_flush(connection_);
}

/// The editor decides about the size, not the user.
void EditorWindow::fixSize() {
    SizeHints hints;
    hints.flags = kHasLeastSize | kHasMostSize;
    hints.least = hints.most = {size_.widthPixels, size_.heightPixels};
    setProperty(connection_, window_, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, &hints,
                sizeof hints / 4);
}

std::uint32_t EditorWindow::atom(const char* name) const {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const auto reply = owned(
        xcb_intern_atom_reply(connection_, xcb_intern_atom(connection_, 0, length, name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void EditorWindow::serveUntil(Clock::time_point moment) {
    while (true) {
        takeEvents();
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - Clock::now());
        if (state_ != State::Open || left.count() <= 0)
            return;
        pollfd server{xcb_get_file_descriptor(connection_), POLLIN, 0};
        if (poll(&server, 1, static_cast<int>(left.count())) < 0)
            return;
    }
}

void EditorWindow::takeEvents() {
    while (const auto event = owned(xcb_poll_for_event(connection_))) {
        const std::uint8_t kind = event->response_type & kKindBits;
        if (kind == XCB_CLIENT_MESSAGE)
            takeMessage(event.get());
        else if (kind == XCB_DESTROY_NOTIFY)
            state_ = State::Gone;
    }
    if (xcb_connection_has_error(connection_) != 0)
        state_ = State::Gone;
}

void EditorWindow::takeMessage(const void* event) {
    auto message = *static_cast<const xcb_client_message_event_t*>(event);
    if (message.type != protocols_ || message.format != 32)
        return;
    const xcb_atom_t asked = message.data.data32[0];
    if (asked == deleteWindow_ && state_ == State::Open) {
        state_ = State::CloseWanted;
    } else if (asked == ping_) {
        message.window = screen_->root;
        xcb_send_event(connection_, 0, screen_->root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(connection_);
    }
}

bool EditorWindow::holdsAnEditor() const {
    const auto tree =
        owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window_), nullptr));
    return tree && tree->children_len > 0;
}

Result<WindowPicture> EditorWindow::picture() const {
    const auto image = owned(
        xcb_get_image_reply(connection_,
                            xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window_, 0, 0,
                                          static_cast<std::uint16_t>(size_.widthPixels),
                                          static_cast<std::uint16_t>(size_.heightPixels), ~0U),
                            nullptr));
    if (!image)
        return Problem{"the editor cannot be pictured: not all of its window is on the screen"};
    const std::size_t pixels =
        static_cast<std::size_t>(size_.widthPixels) * static_cast<std::size_t>(size_.heightPixels);
    const bool hasOurPixels =
        (image->depth == kColourDepth || image->depth == kColourDepthWithAlpha) &&
        xcb_get_setup(connection_)->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST &&
        static_cast<std::size_t>(xcb_get_image_data_length(image.get())) >= 4 * pixels;
    if (!hasOurPixels)
        return Problem{"the editor cannot be pictured: the screen has other than 24 bits a pixel"};
    WindowPicture picture{size_, {}};
    picture.bytes.reserve(3 * pixels);
    const std::uint8_t* from = xcb_get_image_data(image.get());
    for (std::size_t pixel = 0; pixel < pixels; ++pixel, from += 4) // blue, green, red, unused
        picture.bytes.insert(picture.bytes.end(), {from[2], from[1], from[0]});
    return picture;
}

} // namespace pedl
