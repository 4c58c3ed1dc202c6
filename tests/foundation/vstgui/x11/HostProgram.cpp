#include "tests/foundation/vstgui/x11/HostProgram.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon.h>

namespace VSTGUI {

namespace {

xcb_visualid_t visualOf(const xcb_screen_t& screen, uint8_t depth) {
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0;
         xcb_depth_next(&depths))
        if (depths.data->depth == depth && depths.data->visuals_len > 0)
            return xcb_depth_visuals_iterator(depths.data).data->visual_id;
    return screen.root_visual;
}

} // namespace

HostProgram::HostProgram(int width, int height, uint8_t depth)
    : connection_(xcb_connect(nullptr, nullptr)),
      screen_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data),
      window_(xcb_generate_id(connection_)) {
    const xcb_colormap_t colormap = xcb_generate_id(connection_);
    const xcb_visualid_t visual = visualOf(*screen_, depth);
    xcb_create_colormap(connection_, XCB_COLORMAP_ALLOC_NONE, colormap, screen_->root, visual);
    const uint32_t values[] = {0, 0, 1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE,
                               colormap};
    xcb_create_window(connection_, depth, window_, screen_->root, kX, kY,
                      static_cast<uint16_t>(width), static_cast<uint16_t>(height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                          XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                      values);
    xcb_map_window(connection_, window_);
    const xcb_setup_t& setup = *xcb_get_setup(connection_);
    keyboard_ = owned(xcb_get_keyboard_mapping_reply(
        connection_,
        xcb_get_keyboard_mapping(connection_, setup.min_keycode,
                                 static_cast<uint8_t>(setup.max_keycode - setup.min_keycode + 1)),
        nullptr));
    moveTo(-50, -50);
    takeFocus();
}

HostProgram::~HostProgram() {
    xcb_disconnect(connection_);
}

void HostProgram::destroyWindow() {
    xcb_destroy_window(connection_, window_);
    sync();
}

// Mouse and keyboard

void HostProgram::fake(uint8_t type, uint8_t detail, int x, int y) {
    xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, screen_->root,
                        static_cast<int16_t>(x), static_cast<int16_t>(y), 0);
    sync();
}

void HostProgram::moveTo(int x, int y) {
    fake(XCB_MOTION_NOTIFY, 0, kX + x, kY + y);
}

void HostProgram::button(uint8_t number, bool isDown) {
    fake(isDown ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, number);
}

void HostProgram::click(int x, int y, uint8_t number) {
    moveTo(x, y);
    button(number, true);
    button(number, false);
}

uint8_t HostProgram::keycodeOf(xcb_keysym_t symbol, bool& needsShift) const {
    const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(keyboard_.get());
    const int count = xcb_get_keyboard_mapping_keysyms_length(keyboard_.get());
    for (int column = 0; column < 2; ++column)
        for (int i = column; i < count; i += keyboard_->keysyms_per_keycode)
            if (symbols[i] == symbol) {
                needsShift = column == 1;
                return static_cast<uint8_t>(xcb_get_setup(connection_)->min_keycode +
                                            i / keyboard_->keysyms_per_keycode);
            }
    return 0;
}

std::string HostProgram::nameOf(uint8_t keycode) const {
    const int row = keycode - xcb_get_setup(connection_)->min_keycode;
    char name[64];
    xkb_keysym_get_name(
        xcb_get_keyboard_mapping_keysyms(keyboard_.get())[row * keyboard_->keysyms_per_keycode],
        name, sizeof(name));
    return name;
}

void HostProgram::key(xcb_keysym_t symbol, bool isDown) {
    bool needsShift = false;
    fake(isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE, keycodeOf(symbol, needsShift));
}

void HostProgram::keycode(uint8_t code, bool isDown) {
    fake(isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE, code);
}

void HostProgram::type(xcb_keysym_t symbol) {
    bool needsShift = false;
    keycodeOf(symbol, needsShift);
    if (needsShift) {
        withHeld(XKB_KEY_Shift_L, symbol);
        return;
    }
    key(symbol, true);
    key(symbol, false);
}

void HostProgram::type(const std::string& text) {
    for (const char character : text)
        type(static_cast<xcb_keysym_t>(character)); // Latin-1's symbols are its characters
}

void HostProgram::withHeld(xcb_keysym_t modifier, xcb_keysym_t symbol) {
    key(modifier, true);
    key(symbol, true);
    key(symbol, false);
    key(modifier, false);
}

void HostProgram::takeFocus() {
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, window_, XCB_CURRENT_TIME);
    sync();
}

void HostProgram::sayEmbedding(void* editorWindow, uint32_t message, uint32_t data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(reinterpret_cast<uintptr_t>(editorWindow));
    event.type = atom("_XEMBED");
    event.data.data32[1] = message;
    event.data.data32[3] = data;
    xcb_send_event(connection_, 0, event.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&event));
    sync();
}

std::string HostProgram::takeKeys() {
    serve();
    return std::exchange(keys_, {});
}

// Windows

xcb_window_t HostProgram::cover(int x, int y, int width, int height) {
    const xcb_window_t window = xcb_generate_id(connection_);
    const uint32_t values[] = {0x00FF00, 1};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, screen_->root,
                      static_cast<int16_t>(kX + x), static_cast<int16_t>(kY + y),
                      static_cast<uint16_t>(width), static_cast<uint16_t>(height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(connection_, window);
    sync();
    return window;
}

void HostProgram::uncover(xcb_window_t cover) {
    xcb_destroy_window(connection_, cover);
    sync();
}

uint32_t HostProgram::pixelAt(int x, int y) const {
    const auto image = owned(xcb_get_image_reply(
        connection_,
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root,
                      static_cast<int16_t>(kX + x), static_cast<int16_t>(kY + y), 1, 1, ~0U),
        nullptr));
    uint32_t pixel = 0;
    if (image)
        std::memcpy(&pixel, xcb_get_image_data(image.get()), sizeof(pixel));
    return pixel & 0xFFFFFF;
}

// Text of another program

xcb_atom_t HostProgram::atom(const char* name) const {
    const auto reply = owned(xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void HostProgram::own(const char* selection, const std::string& text, Habit habit) {
    text_ = text;
    habit_ = habit;
    xcb_set_selection_owner(connection_, window_, atom(selection), XCB_CURRENT_TIME);
    sync();
}

void HostProgram::beginAsking(const char* selection, const char* target) {
    isAnswered_ = false;
    answer_ = "(no answer)";
    xcb_convert_selection(connection_, window_, atom(selection), atom(target), atom("ANSWER"),
                          XCB_CURRENT_TIME);
    sync();
}

bool HostProgram::hasAnswer() {
    serve();
    return isAnswered_;
}

void HostProgram::serve() {
    sync();
    while (const auto event = owned(xcb_poll_for_event(connection_)))
        take(*event);
    sync();
}

void HostProgram::take(const xcb_generic_event_t& event) {
    switch (typeOf(event)) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
        if (eventAs<xcb_key_press_event_t>(event).event != window_)
            break; // as toolkits do: not one of its windows
        keys_ += (keys_.empty() ? "" : ", ") +
                 std::string(typeOf(event) == XCB_KEY_PRESS ? "press " : "release ") +
                 nameOf(eventAs<xcb_key_press_event_t>(event).detail);
        break;
    case XCB_SELECTION_NOTIFY: {
        isAnswered_ = true;
        if (eventAs<xcb_selection_notify_event_t>(event).property == XCB_ATOM_NONE) {
            answer_ = "(none)";
            break;
        }
        const auto property =
            owned(xcb_get_property_reply(connection_,
                                         xcb_get_property(connection_, 1, window_, atom("ANSWER"),
                                                          XCB_GET_PROPERTY_TYPE_ANY, 0, 10000),
                                         nullptr));
        answer_.assign(static_cast<const char*>(xcb_get_property_value(property.get())),
                       static_cast<std::size_t>(xcb_get_property_value_length(property.get())));
        break;
    }
    case XCB_CLIENT_MESSAGE:
        if (eventAs<xcb_client_message_event_t>(event).data.data32[1] == 3)
            keys_ += (keys_.empty() ? "" : ", ") + std::string("focus wanted");
        break;
    case XCB_SELECTION_REQUEST:
        provide(eventAs<xcb_selection_request_event_t>(event));
        break;
    default:
        break;
    }
}

void HostProgram::provide(const xcb_selection_request_event_t& request) {
    if (habit_ == Habit::Silent)
        return;
    const bool isRefused = habit_ == Habit::Refuses;
    if (habit_ == Habit::InPieces) {
        const auto size = static_cast<uint32_t>(text_.size());
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            atom("INCR"), 32, 1, &size);
    } else if (!isRefused) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            request.target, 8, static_cast<uint32_t>(text_.size()), text_.data());
    }
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = isRefused ? xcb_atom_t{XCB_ATOM_NONE} : request.property;
    xcb_send_event(connection_, 0, request.requestor, 0, reinterpret_cast<const char*>(&notice));
}

} // namespace VSTGUI
