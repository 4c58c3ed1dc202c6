#pragma once

#include <memory>
#include <string>

#include "vstgui/lib/platform/linux/x11connection.h"
#include "vstgui/lib/vstkeycode.h"

struct xkb_context;
struct xkb_keymap;
struct xkb_state;
struct xkb_compose_table;
struct xkb_compose_state;

namespace VSTGUI {

/// What the keys of the server's keyboard mean.
///
/// Modifiers come from each event's own mask, never from the history of key presses: releases are
/// not seen while another window has the keyboard. The layout is read at the first key and again
/// after it changed, so that opening a window costs nothing here.
class X11Keyboard {
public:
    explicit X11Keyboard(X11Connection& connection);
    ~X11Keyboard();

    struct Key {
        VstKeyCode code{};
        std::string text;    // what it writes, UTF-8; empty for most keys with a name
        bool isPart = false; // of a character that is written with several keys
    };

    /// Whether a text is being written. Keys without a character of their own, accents, join the
    /// next one then; else they are keys like all others.
    enum class Writing { No, Yes };
    Key readPress(const xcb_key_press_event_t& event, Writing writing);
    VstKeyCode codeOf(const xcb_key_press_event_t& event);

    /// @return whether the event told a change of the layout
    bool noteChange(const xcb_generic_event_t& event);

private:
    struct XkbFree {
        void operator()(xkb_context* context) const;
        void operator()(xkb_keymap* keymap) const;
        void operator()(xkb_state* state) const;
        void operator()(xkb_compose_table* table) const;
        void operator()(xkb_compose_state* state) const;
    };
    template <typename T> using Owned = std::unique_ptr<T, XkbFree>;

    bool ensureLayout();
    bool askForChanges();
    void ensureCompose();
    void compose(uint32_t keySymbol, Key& key);
    int32_t characterOf(const xcb_key_press_event_t& event) const;

    X11Connection& connection_;
    Owned<xkb_context> context_;
    Owned<xkb_keymap> keymap_;
    Owned<xkb_state> state_;
    Owned<xkb_compose_table> composeTable_;
    Owned<xkb_compose_state> compose_;
    int32_t device_ = -1;
    uint8_t firstEvent_ = 0; // of the server's keyboard extension, 0 before it is asked
    bool isUnusable_ = false;
    bool hasTriedCompose_ = false;
};

} // namespace VSTGUI
