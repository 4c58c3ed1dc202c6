#pragma once

#include <array>
#include <string>

#include "vstgui/lib/platform/common/clipboard.h"
#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// The two selections of X: what was copied (CLIPBOARD) and what was selected last (PRIMARY).
///
/// UTF-8 text in one piece, as long as a name is: a field takes 255 characters. One request at a
/// time; one that stays without an answer is dropped after a while.
class X11Clipboard : public Clipboard {
public:
    /// Of another program's text no more is read: four times what a field takes.
    static constexpr std::size_t kMostTextBytes = 4 * 1024;
    static constexpr uint64_t kPatienceMs = 2000;

    X11Clipboard(X11Connection& connection, xcb_window_t window)
        : connection_(connection), window_(window) {}

    void setText(Kind kind, const std::string& text) override;
    void requestText(Kind kind, Receiver receiver) override;

    /// @return whether the event was about a selection; the receiver may have been called
    bool handle(const xcb_generic_event_t& event);
    /// At each pump: gives up on what did not answer. Sends nothing.
    void dropLateRequest();

private:
    struct Selection {
        std::string text;
        bool isOwned = false;
        xcb_timestamp_t since = XCB_CURRENT_TIME;
    };

    Selection& selection(Kind kind) { return selections_[kind == Kind::Copied ? 0 : 1]; }
    Selection* selectionOf(xcb_atom_t name);
    xcb_atom_t nameOf(Kind kind) const;

    bool own(Kind kind, const std::string& text, xcb_timestamp_t time);
    void answer(const xcb_selection_request_event_t& request);
    bool provide(const Selection& selection, const xcb_selection_request_event_t& request);
    void arrived(const xcb_selection_notify_event_t& notice);
    XcbOwned<xcb_get_property_reply_t> takeProperty();

    X11Connection& connection_;
    xcb_window_t window_;
    std::array<Selection, 2> selections_;

    Receiver receiver_; // of the request under way
    xcb_atom_t requested_ = XCB_ATOM_NONE;
    uint64_t askedMs_ = 0;
};

} // namespace VSTGUI
