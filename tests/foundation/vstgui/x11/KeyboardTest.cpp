#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <xkbcommon/xkbcommon.h>

#include "vstgui/lib/controls/ctextedit.h"

namespace VSTGUI {
namespace {

/// An editor in whose corner lies a view that wants the keyboard.
class KeyInHost : public EditorInHost {
public:
    KeyInHost() : view(editor.add("pad", CRect(0, 0, 100, 100))) { view->setWantsFocus(true); }

    void click() {
        host.click(10, 10);
        settle();
    }
    /// The code of the key that arrives in the editor.
    VstKeyCode codeAfter(const std::function<void()>& action) {
        view->lastKey = {};
        action();
        settle();
        return view->lastKey;
    }
    int virtOf(xcb_keysym_t symbol) {
        return codeAfter([&] { host.type(symbol); }).virt;
    }
    xcb_window_t window() {
        return static_cast<xcb_window_t>(
            reinterpret_cast<uintptr_t>(editor.window().getPlatformRepresentation()));
    }
    xcb_window_t focus() const {
        return owned(
                   xcb_get_input_focus_reply(host.xcb(), xcb_get_input_focus(host.xcb()), nullptr))
            ->focus;
    }

    ScriptedControl* view;
};

TEST(X11Keyboard, KeysThatNobodyUsesGoToTheHostPressAndRelease) {
    PEDL_NEEDS_DISPLAY();
    KeyInHost w;
    const std::string space = "press space, release space";
    w.host.moveTo(10, 10);
    w.host.click(10, 10, 4);
    EXPECT_EQ(w.virtOf(XKB_KEY_space), 0) << "the focus is the host's";
    EXPECT_EQ(w.focus(), w.host.windowId()) << "not taken by opening, hovering, or the wheel";
    EXPECT_EQ(w.host.takeKeys(), space);
    w.click();
    EXPECT_EQ(w.focus(), w.window());
    EXPECT_EQ(w.virtOf(XKB_KEY_space), VKEY_SPACE) << "offered after a press";
    EXPECT_EQ(w.host.takeKeys(), space);
    w.view->keyResult = 1;
    EXPECT_EQ(w.virtOf(XKB_KEY_space), VKEY_SPACE);
    EXPECT_EQ(w.host.takeKeys(), "") << "neither press nor release of a used key";
    w.view->keyResult = -1;
    xcb_key_press_event_t event{};
    event.response_type = XCB_KEY_PRESS;
    event.detail = 65; // Space
    event.event = w.window();
    EXPECT_EQ(w.codeAfter([&] {
                   xcb_send_event(w.host.xcb(), 0, w.window(), XCB_EVENT_MASK_KEY_PRESS,
                                  reinterpret_cast<const char*>(&event));
               }).virt,
              VKEY_SPACE);
    EXPECT_EQ(w.host.takeKeys(), "") << "what the host sent is not sent back";

    w.host.takeFocus();
    w.settle();
    EXPECT_EQ(w.virtOf(XKB_KEY_space), 0);
    EXPECT_EQ(w.host.takeKeys(), space);
    w.click();
    // As some hosts do: a window that listens to no keys between theirs and the editor's
    const xcb_window_t socket = xcb_generate_id(w.host.xcb());
    xcb_create_window(w.host.xcb(), XCB_COPY_FROM_PARENT, socket, w.host.windowId(), 0, 0, 400, 300,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(w.host.xcb(), socket);
    xcb_reparent_window(w.host.xcb(), w.window(), socket, 0, 0);
    w.host.sync();
    w.click();
    w.virtOf(XKB_KEY_space);
    EXPECT_EQ(w.host.takeKeys(), space);
    w.editor.close();
    EXPECT_TRUE(w.until([&] { return w.focus() == socket; })) << "the host has it back";
}

TEST(X11Keyboard, KeysHaveTheirCodes) {
    PEDL_NEEDS_DISPLAY();
    KeyInHost w;
    w.click();
    struct Row {
        xcb_keysym_t held, symbol;
        int bit, virt;
        char character;
    };
    for (const Row& row : {Row{0, XKB_KEY_a, 0, 0, 'a'},
                           {0, XKB_KEY_slash, 0, 0, '/'},
                           {0, XKB_KEY_Escape, 0, VKEY_ESCAPE, 0},
                           {0, XKB_KEY_F12, 0, VKEY_F12, 0},
                           {0, XKB_KEY_KP_Enter, 0, VKEY_ENTER, 0},
                           {0, XKB_KEY_KP_Home, 0, VKEY_HOME, 0},
                           {0, XKB_KEY_KP_Add, 0, VKEY_ADD, 0},
                           {0, XKB_KEY_Delete, 0, VKEY_DELETE, 0},
                           {XKB_KEY_Shift_L, XKB_KEY_a, MODIFIER_SHIFT, 0, 'a'},
                           {XKB_KEY_Control_L, XKB_KEY_c, MODIFIER_CONTROL, 0, 'c'},
                           {XKB_KEY_Alt_L, XKB_KEY_x, MODIFIER_ALTERNATE, 0, 'x'},
                           {XKB_KEY_Shift_L, XKB_KEY_F2, MODIFIER_SHIFT, VKEY_F2, 0},
                           {XKB_KEY_Num_Lock, XKB_KEY_KP_Home, 0, VKEY_NUMPAD7, 0}}) { // last
        const VstKeyCode code = w.codeAfter([&] {
            if (row.held != 0)
                w.host.withHeld(row.held, row.symbol);
            else
                w.host.type(row.symbol);
        });
        EXPECT_EQ(code.virt, row.virt) << row.symbol;
        EXPECT_EQ(code.character, row.character) << row.symbol;
        EXPECT_EQ(code.modifier, row.bit) << row.symbol;
    }
    w.host.type(XKB_KEY_Num_Lock);
}

TEST(X11Keyboard, LettersTypedIntoAFieldReachTheFieldAlone) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    auto* const field = new CTextEdit(CRect(10, 10, 200, 30), &w.editor, 1, "old");
    w.editor.theFrame().addView(field);
    w.settle();
    w.host.click(50, 20);
    w.settle();
    w.host.type("Big a 7");
    w.settle();
    // The accent is on no key of this layout: one is put on an unused key.
    const xcb_keysym_t accent = XKB_KEY_dead_acute;
    constexpr xcb_keycode_t kUnusedKey = 97;
    xcb_change_keyboard_mapping(w.host.xcb(), 1, kUnusedKey, 1, &accent);
    w.host.sync();
    w.settle();
    w.host.keycode(kUnusedKey, true);
    w.host.keycode(kUnusedKey, false);
    w.host.type("e");
    w.settle();
    EXPECT_EQ(w.host.takeKeys(), "press Shift_L, release Shift_L") << "the host tracks modifiers";
    w.host.type(XKB_KEY_Return);
    w.settle();
    EXPECT_STREQ(field->getText(), "Big a 7\u00E9");
    EXPECT_EQ(w.host.takeKeys(), "");
}

TEST(X11Keyboard, AHostThatEmbedsIsAskedForTheFocusAndSaysWhoHasIt) {
    PEDL_NEEDS_DISPLAY();
    KeyInHost w;
    w.click();
    w.editor.log.take();
    w.host.takeFocus(); // as window managers do at each press, before they let it through
    w.click();
    EXPECT_EQ(w.editor.log.take().find("loses focus"), std::string::npos);
    w.host.takeFocus();
    EXPECT_TRUE(w.until([&] { return w.editor.theFrame().getFocusView() == nullptr; }));
    EXPECT_EQ(w.host.takeKeys(), "") << "most hosts do not speak the protocol";
    void* const window = w.editor.window().getPlatformRepresentation();
    w.host.sayEmbedding(window, 0, w.host.windowId()); // embedded
    w.settle();
    w.click();
    EXPECT_EQ(w.host.takeKeys(), "focus wanted");
    w.host.sayEmbedding(window, 5); // the focus is elsewhere
    w.settle();
    EXPECT_EQ(w.editor.theFrame().getFocusView(), nullptr);
    w.host.sayEmbedding(window, 4);
    w.settle();
    EXPECT_EQ(w.editor.theFrame().getFocusView(), w.view);
}

} // namespace
} // namespace VSTGUI
