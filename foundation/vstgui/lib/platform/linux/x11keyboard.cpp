#include "vstgui/lib/platform/linux/x11keyboard.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

// The keyboard extension's header names a field with a word of C++.
#define explicit explicitMapping
#include <xcb/xkb.h>
#undef explicit
#include <xkbcommon/xkbcommon-compose.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace VSTGUI {

namespace {

struct NamedKey {
    xkb_keysym_t symbol;
    VstVirtualKey virt;
};

// clang-format off
constexpr NamedKey kNamedKeys[] = {
    {XKB_KEY_BackSpace,    VKEY_BACK},      {XKB_KEY_Tab,          VKEY_TAB},
    {XKB_KEY_ISO_Left_Tab, VKEY_TAB},       {XKB_KEY_Clear,        VKEY_CLEAR},
    {XKB_KEY_Return,       VKEY_RETURN},    {XKB_KEY_Pause,        VKEY_PAUSE},
    {XKB_KEY_Escape,       VKEY_ESCAPE},    {XKB_KEY_space,        VKEY_SPACE},
    {XKB_KEY_End,          VKEY_END},       {XKB_KEY_Home,         VKEY_HOME},
    {XKB_KEY_Left,         VKEY_LEFT},      {XKB_KEY_Up,           VKEY_UP},
    {XKB_KEY_Right,        VKEY_RIGHT},     {XKB_KEY_Down,         VKEY_DOWN},
    {XKB_KEY_Page_Up,      VKEY_PAGEUP},    {XKB_KEY_Page_Down,    VKEY_PAGEDOWN},
    {XKB_KEY_Select,       VKEY_SELECT},    {XKB_KEY_Print,        VKEY_SNAPSHOT},
    {XKB_KEY_Insert,       VKEY_INSERT},    {XKB_KEY_Delete,       VKEY_DELETE},
    {XKB_KEY_Help,         VKEY_HELP},      {XKB_KEY_Num_Lock,     VKEY_NUMLOCK},
    {XKB_KEY_Scroll_Lock,  VKEY_SCROLL},
    {XKB_KEY_Shift_L,      VKEY_SHIFT},     {XKB_KEY_Shift_R,      VKEY_SHIFT},
    {XKB_KEY_Control_L,    VKEY_CONTROL},   {XKB_KEY_Control_R,    VKEY_CONTROL},
    {XKB_KEY_Alt_L,        VKEY_ALT},       {XKB_KEY_Alt_R,        VKEY_ALT},

    {XKB_KEY_KP_Enter,     VKEY_ENTER},     {XKB_KEY_KP_Space,     VKEY_SPACE},
    {XKB_KEY_KP_Tab,       VKEY_TAB},       {XKB_KEY_KP_Begin,     VKEY_CLEAR},
    {XKB_KEY_KP_Home,      VKEY_HOME},      {XKB_KEY_KP_End,       VKEY_END},
    {XKB_KEY_KP_Left,      VKEY_LEFT},      {XKB_KEY_KP_Up,        VKEY_UP},
    {XKB_KEY_KP_Right,     VKEY_RIGHT},     {XKB_KEY_KP_Down,      VKEY_DOWN},
    {XKB_KEY_KP_Page_Up,   VKEY_PAGEUP},    {XKB_KEY_KP_Page_Down, VKEY_PAGEDOWN},
    {XKB_KEY_KP_Insert,    VKEY_INSERT},    {XKB_KEY_KP_Delete,    VKEY_DELETE},
    {XKB_KEY_KP_Multiply,  VKEY_MULTIPLY},  {XKB_KEY_KP_Add,       VKEY_ADD},
    {XKB_KEY_KP_Separator, VKEY_SEPARATOR}, {XKB_KEY_KP_Subtract,  VKEY_SUBTRACT},
    {XKB_KEY_KP_Decimal,   VKEY_DECIMAL},   {XKB_KEY_KP_Divide,    VKEY_DIVIDE},
    {XKB_KEY_KP_Equal,     VKEY_EQUALS},
};
// clang-format on

unsigned char virtualKeyOf(xkb_keysym_t symbol) {
    if (symbol >= XKB_KEY_F1 && symbol <= XKB_KEY_F12)
        return static_cast<unsigned char>(VKEY_F1 + (symbol - XKB_KEY_F1));
    if (symbol >= XKB_KEY_KP_0 && symbol <= XKB_KEY_KP_9)
        return static_cast<unsigned char>(VKEY_NUMPAD0 + (symbol - XKB_KEY_KP_0));
    const auto row = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                  [symbol](const NamedKey& key) { return key.symbol == symbol; });
    return row == std::end(kNamedKeys) ? 0 : static_cast<unsigned char>(row->virt);
}

unsigned char modifiersOf(uint16_t stateMask) {
    int modifiers = 0;
    if (stateMask & XCB_MOD_MASK_SHIFT)
        modifiers |= MODIFIER_SHIFT;
    if (stateMask & XCB_MOD_MASK_1)
        modifiers |= MODIFIER_ALTERNATE;
    if (stateMask & XCB_MOD_MASK_CONTROL)
        modifiers |= MODIFIER_CONTROL;
    return static_cast<unsigned char>(modifiers);
}

/// The event's mask holds the layout's number above the modifiers and the buttons.
uint32_t layoutOf(uint16_t stateMask) {
    return (stateMask >> 13) & 3U;
}

/// Its accents serve where the user's locale has no list of them.
constexpr const char* kKnownLocale = "en_US.UTF-8";

/// The user's, from the environment: what the host made of the process's locale is not known.
const char* writingLocale() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* const value = std::getenv(name); value && *value)
            return value;
    return "C";
}

} // namespace

void X11Keyboard::XkbFree::operator()(xkb_context* context) const {
    xkb_context_unref(context);
}
void X11Keyboard::XkbFree::operator()(xkb_keymap* keymap) const {
    xkb_keymap_unref(keymap);
}
void X11Keyboard::XkbFree::operator()(xkb_state* state) const {
    xkb_state_unref(state);
}
void X11Keyboard::XkbFree::operator()(xkb_compose_table* table) const {
    xkb_compose_table_unref(table);
}
void X11Keyboard::XkbFree::operator()(xkb_compose_state* state) const {
    xkb_compose_state_unref(state);
}

X11Keyboard::X11Keyboard(X11Connection& connection) : connection_(connection) {}

X11Keyboard::~X11Keyboard() = default;

// The layout

bool X11Keyboard::askForChanges() {
    constexpr uint16_t kEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr uint16_t kAllMapParts =
        XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP |
        XCB_XKB_MAP_PART_EXPLICIT_COMPONENTS | XCB_XKB_MAP_PART_KEY_ACTIONS |
        XCB_XKB_MAP_PART_VIRTUAL_MODS | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_connection_t* const xcb = connection_.xcb();
    if (!xkb_x11_setup_xkb_extension(
            xcb, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &firstEvent_, nullptr))
        return false;
    device_ = xkb_x11_get_core_keyboard_device_id(xcb);
    if (device_ < 0)
        return false;
    xcb_xkb_select_events(xcb, static_cast<xcb_xkb_device_spec_t>(device_), kEvents, 0, kEvents,
                          kAllMapParts, kAllMapParts, nullptr);
    context_.reset(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
    if (context_) // it would write to the host's standard error
        xkb_context_set_log_fn(context_.get(), [](auto...) {});
    return context_ != nullptr;
}

bool X11Keyboard::ensureLayout() {
    if (keymap_ || isUnusable_)
        return keymap_ != nullptr;
    if (!context_ && !askForChanges()) {
        isUnusable_ = true; // a server without the extension: every key is the host's
        return false;
    }
    keymap_.reset(xkb_x11_keymap_new_from_device(context_.get(), connection_.xcb(), device_,
                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (keymap_)
        state_.reset(xkb_state_new(keymap_.get()));
    if (!state_)
        keymap_.reset();
    return keymap_ != nullptr;
}

bool X11Keyboard::noteChange(const xcb_generic_event_t& event) {
    if (firstEvent_ == 0 || typeOf(event) != firstEvent_)
        return false;
    const auto kind = eventAs<xcb_xkb_map_notify_event_t>(event).xkbType;
    if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY) {
        state_.reset();
        keymap_.reset(); // read again at the next key
    }
    return true;
}

// Keys

VstKeyCode X11Keyboard::codeOf(const xcb_key_press_event_t& event) {
    VstKeyCode code{};
    if (!ensureLayout())
        return code;
    constexpr uint16_t kModifiers = 0xFF;
    xkb_state_update_mask(state_.get(), event.state & kModifiers, 0, 0, 0, 0,
                          layoutOf(event.state));
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(state_.get(), event.detail);
    code.modifier = modifiersOf(event.state);
    code.virt = virtualKeyOf(symbol);
    if (symbol == XKB_KEY_ISO_Left_Tab)
        code.modifier |= MODIFIER_SHIFT;
    if (code.virt == 0)
        code.character = characterOf(event);
    return code;
}

X11Keyboard::Key X11Keyboard::readPress(const xcb_key_press_event_t& event, Writing writing) {
    Key key;
    key.code = codeOf(event);
    if (!keymap_)
        return key;
    if (!(key.code.modifier & (MODIFIER_CONTROL | MODIFIER_ALTERNATE))) {
        char bytes[16];
        xkb_state_key_get_utf8(state_.get(), event.detail, bytes, sizeof(bytes));
        if (static_cast<unsigned char>(bytes[0]) >= 0x20 && bytes[0] != 0x7F)
            key.text = bytes;
    }
    if (writing == Writing::Yes)
        compose(xkb_state_key_get_one_sym(state_.get(), event.detail), key);
    else if (compose_)
        xkb_compose_state_reset(compose_.get());
    return key;
}

/// The small letter on the key. With Ctrl held it is a Latin one, from another layout of the
/// keyboard when the present one has none: Ctrl+C is that key in every alphabet.
int32_t X11Keyboard::characterOf(const xcb_key_press_event_t& event) const {
    const auto inLayout = [&](xkb_layout_index_t layout) -> int32_t {
        const xkb_keysym_t* symbols = nullptr;
        if (xkb_keymap_key_get_syms_by_level(keymap_.get(), event.detail, layout, 0, &symbols) < 1)
            return 0;
        return static_cast<int32_t>(xkb_keysym_to_utf32(symbols[0]));
    };
    constexpr int32_t kLastLatin = 0x7F;
    const int32_t character = inLayout(xkb_state_key_get_layout(state_.get(), event.detail));
    if (character <= kLastLatin || !(event.state & XCB_MOD_MASK_CONTROL))
        return character;
    const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap_.get(), event.detail);
    for (xkb_layout_index_t layout = 0; layout < layouts; ++layout)
        if (const int32_t latin = inLayout(layout); latin > 0 && latin <= kLastLatin)
            return latin;
    return character;
}

// Accents

void X11Keyboard::ensureCompose() {
    if (hasTriedCompose_)
        return;
    hasTriedCompose_ = true;
    for (const char* locale : {writingLocale(), kKnownLocale})
        if (!composeTable_)
            composeTable_.reset(xkb_compose_table_new_from_locale(context_.get(), locale,
                                                                  XKB_COMPOSE_COMPILE_NO_FLAGS));
    if (composeTable_)
        compose_.reset(xkb_compose_state_new(composeTable_.get(), XKB_COMPOSE_STATE_NO_FLAGS));
}

void X11Keyboard::compose(uint32_t keySymbol, Key& key) {
    ensureCompose();
    if (!compose_ || xkb_compose_state_feed(compose_.get(), keySymbol) == XKB_COMPOSE_FEED_IGNORED)
        return;
    switch (xkb_compose_state_get_status(compose_.get())) {
    case XKB_COMPOSE_COMPOSING:
        key.isPart = true;
        break;
    case XKB_COMPOSE_CANCELLED: // no such character: the keys so far write nothing
        key.isPart = true;
        xkb_compose_state_reset(compose_.get());
        break;
    case XKB_COMPOSE_COMPOSED: {
        char bytes[64];
        xkb_compose_state_get_utf8(compose_.get(), bytes, sizeof(bytes));
        key.text = bytes;
        key.code = {0, 0, 0};
        xkb_compose_state_reset(compose_.get());
        break;
    }
    default:
        break;
    }
}

} // namespace VSTGUI
