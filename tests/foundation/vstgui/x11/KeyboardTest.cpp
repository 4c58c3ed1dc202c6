#include "tests/foundation/vstgui/x11/EditorInHost.h"

#include <xkbcommon/xkbcommon.h>

#include "vstgui/lib/controls/ctextedit.h"

namespace VSTGUI {
namespace {

/// Writes the keys down and uses those that it is told to.
class KeyView : public CControl {
public:
    KeyView() : CControl(CRect(0, 0, 100, 100)) { setWantsFocus(true); }
    void draw(CDrawContext* /*context*/) override {}
    CMouseEventResult onMouseDown(CPoint& /*where*/, const CButtonState& /*buttons*/) override {
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    int32_t onKeyDown(VstKeyCode& key) override {
        last = key;
        return uses ? 1 : -1;
    }
    bool uses = false;
    VstKeyCode last{};
    CLASS_METHODS_NOCOPY(KeyView, CControl)

protected:
    ~KeyView() override = default;
};

TEST(X11Keyboard, KeysThatNobodyUsesGoToTheHostPressAndRelease) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    auto* const view = new KeyView;
    w.editor.theFrame().addView(view);
    w.settle();

    w.host.moveTo(10, 10);
    w.host.type(XKB_KEY_space);
    w.settle();
    EXPECT_EQ(w.host.takeKeys(), "press space, release space") << "the mouse is over the window";
    EXPECT_EQ(view->last.virt, 0) << "but the focus is the host's";

    w.host.click(10, 10);
    w.settle();
    w.host.type(XKB_KEY_space);
    w.settle();
    EXPECT_EQ(view->last.virt, VKEY_SPACE) << "offered after a press";
    EXPECT_EQ(w.host.takeKeys(), "press space, release space");

    view->uses = true;
    w.host.type(XKB_KEY_Up);
    w.settle();
    EXPECT_EQ(w.host.takeKeys(), "") << "neither press nor release of a used key";

    w.host.takeFocus();
    w.settle();
    view->last = {};
    w.host.type(XKB_KEY_Up);
    w.settle();
    EXPECT_EQ(view->last.virt, 0);
    EXPECT_EQ(w.host.takeKeys(), "press Up, release Up");
}

TEST(X11Keyboard, AWindowThatListensToNoKeysIsPassedOver) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    xcb_connection_t* const xcb = w.host.xcb();
    const xcb_window_t socket = xcb_generate_id(xcb);
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, socket, w.host.windowId(), 0, 0, 400, 300, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(xcb, socket);
    const auto editor = reinterpret_cast<uintptr_t>(w.editor.window().getPlatformRepresentation());
    xcb_reparent_window(xcb, static_cast<xcb_window_t>(editor), socket, 0, 0);
    w.host.sync();
    w.settle();
    w.host.click(10, 10);
    w.settle();
    w.host.type(XKB_KEY_space);
    w.settle();
    EXPECT_EQ(w.host.takeKeys(), "press space, release space");
}

TEST(X11Keyboard, KeysHaveTheirCodes) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    auto* const view = new KeyView;
    view->uses = true;
    w.editor.theFrame().addView(view);
    w.host.click(10, 10);
    w.settle();
    struct Row {
        xcb_keysym_t symbol;
        int virt;
        char character;
    };
    for (const Row& row :
         {Row{XKB_KEY_a, 0, 'a'}, Row{XKB_KEY_Return, VKEY_RETURN, 0},
          Row{XKB_KEY_Escape, VKEY_ESCAPE, 0}, Row{XKB_KEY_F1, VKEY_F1, 0},
          Row{XKB_KEY_F12, VKEY_F12, 0}, Row{XKB_KEY_KP_Enter, VKEY_ENTER, 0},
          Row{XKB_KEY_KP_Home, VKEY_HOME, 0}, Row{XKB_KEY_KP_Add, VKEY_ADD, 0},
          Row{XKB_KEY_Page_Up, VKEY_PAGEUP, 0}, Row{XKB_KEY_Delete, VKEY_DELETE, 0},
          Row{XKB_KEY_BackSpace, VKEY_BACK, 0}, Row{XKB_KEY_slash, 0, '/'}}) {
        view->last = {};
        w.host.key(row.symbol, true);
        w.host.key(row.symbol, false);
        w.settle();
        EXPECT_EQ(view->last.virt, row.virt) << row.symbol;
        EXPECT_EQ(view->last.character, row.character) << row.symbol;
        EXPECT_EQ(view->last.modifier, 0) << row.symbol;
    }
    struct Held {
        xcb_keysym_t modifier, symbol;
        int bit, virt;
        char character;
    };
    for (const Held& row : {Held{XKB_KEY_Shift_L, XKB_KEY_a, MODIFIER_SHIFT, 0, 'a'},
                            Held{XKB_KEY_Control_L, XKB_KEY_c, MODIFIER_CONTROL, 0, 'c'},
                            Held{XKB_KEY_Alt_L, XKB_KEY_x, MODIFIER_ALTERNATE, 0, 'x'},
                            Held{XKB_KEY_Shift_L, XKB_KEY_F2, MODIFIER_SHIFT, VKEY_F2, 0}}) {
        w.host.withHeld(row.modifier, row.symbol);
        w.settle();
        EXPECT_EQ(view->last.virt, row.virt) << row.symbol;
        EXPECT_EQ(view->last.character, row.character) << row.symbol;
        EXPECT_EQ(view->last.modifier, row.bit) << row.symbol;
    }
    w.host.type(XKB_KEY_Num_Lock);
    w.host.type(XKB_KEY_KP_Home);
    w.settle();
    EXPECT_EQ(view->last.virt, VKEY_NUMPAD7);
    w.host.type(XKB_KEY_Num_Lock);
}

TEST(X11Keyboard, TheFocusIsTakenByAPressAlone) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    w.editor.add("pad", CRect(0, 0, 100, 100));
    const auto focus = [&] {
        xcb_connection_t* const xcb = w.host.xcb();
        return owned(xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr))->focus;
    };
    w.host.moveTo(10, 10);
    w.host.click(10, 10, 4);
    w.settle();
    EXPECT_EQ(focus(), w.host.windowId()) << "not by opening, hovering, or the wheel";
    w.host.click(10, 10);
    w.settle();
    EXPECT_EQ(reinterpret_cast<void*>(uintptr_t{focus()}),
              w.editor.window().getPlatformRepresentation());
    w.editor.close();
    EXPECT_TRUE(w.until([&] { return focus() == w.host.windowId(); })) << "the host has it back";
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

TEST(X11Keyboard, AKeyThatTheHostSentIsNotSentBack) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    auto* const view = new KeyView;
    w.editor.theFrame().addView(view);
    w.editor.theFrame().setFocusView(view);
    xcb_key_press_event_t event{};
    event.response_type = XCB_KEY_PRESS;
    event.detail = 65; // Space
    const auto window = static_cast<xcb_window_t>(
        reinterpret_cast<uintptr_t>(w.editor.window().getPlatformRepresentation()));
    event.event = window;
    xcb_send_event(w.host.xcb(), 0, window, XCB_EVENT_MASK_KEY_PRESS,
                   reinterpret_cast<const char*>(&event));
    w.settle();
    EXPECT_EQ(view->last.virt, VKEY_SPACE);
    EXPECT_EQ(w.host.takeKeys(), "");
}

TEST(X11Keyboard, AHostThatEmbedsIsAskedForTheFocusAndSaysWhoHasIt) {
    PEDL_NEEDS_DISPLAY();
    EditorInHost w;
    auto* const view = new KeyView;
    w.editor.theFrame().addView(view);
    w.host.click(10, 10);
    w.settle();
    w.host.takeFocus();
    w.settle();
    EXPECT_EQ(w.host.takeKeys(), "") << "most hosts do not speak the protocol";
    EXPECT_EQ(w.editor.theFrame().getFocusView(), nullptr);

    void* const window = w.editor.window().getPlatformRepresentation();
    w.host.sayEmbedding(window, 0, w.host.windowId()); // embedded
    w.settle();
    w.host.click(10, 10);
    w.settle();
    EXPECT_EQ(w.host.takeKeys(), "focus wanted");
    w.host.sayEmbedding(window, 5); // the focus is elsewhere
    w.settle();
    EXPECT_EQ(w.editor.theFrame().getFocusView(), nullptr);
    w.host.sayEmbedding(window, 4);
    w.settle();
    EXPECT_EQ(w.editor.theFrame().getFocusView(), view);
}

} // namespace
} // namespace VSTGUI
