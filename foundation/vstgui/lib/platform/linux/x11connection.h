#pragma once

#include <array>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace VSTGUI {

struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply or an event of the server. Null when there is none, for whatever reason.
template <typename T> using XcbOwned = std::unique_ptr<T, XcbFree>;

template <typename T> XcbOwned<T> owned(T* fromServer) {
    return XcbOwned<T>(fromServer);
}

/// The names that windows and selections use, in the order of `kAtomNames`.
enum class Atom {
    Clipboard,
    Utf8String,
    TextPlainUtf8,
    Targets,
    Timestamp,
    Transfer,
    XEmbed,
    XEmbedInfo,
    WindowType,
    WindowTypePopupMenu,
    Count
};

/// One frame's connection to the X server.
///
/// A connection that is lost stays as it is: every call on it does nothing, replies are null. No
/// error handler is set anywhere; errors of requests that were not checked are dropped when they
/// arrive. Whoever writes to it holds a `BrokenPipeGuard`.
class X11Connection {
public:
    /// Null without a display.
    static std::unique_ptr<X11Connection> open();
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    xcb_connection_t* xcb() const { return connection_; }
    bool isAlive() const { return xcb_connection_has_error(connection_) == 0; }
    xcb_atom_t atom(Atom name) const { return atoms_[static_cast<std::size_t>(name)]; }
    /// Null when there is no screen with this root window.
    const xcb_screen_t* screenOf(xcb_window_t root) const;

    /// The next event that has arrived; never waits, sends nothing.
    XcbOwned<xcb_generic_event_t> nextEvent();
    /// The server's time at the last event that had one.
    xcb_timestamp_t lastTime() const { return lastTime_; }

    /// Waits for the outcome of a checked request.
    bool succeeded(xcb_void_cookie_t request) const;
    void flush();

private:
    explicit X11Connection(xcb_connection_t* connection) : connection_(connection) {}
    bool internAtoms();
    void noteTime(const xcb_generic_event_t& event);

    xcb_connection_t* connection_;
    std::array<xcb_atom_t, static_cast<std::size_t>(Atom::Count)> atoms_{};
    xcb_timestamp_t lastTime_ = XCB_CURRENT_TIME;
};

/// The kind of an event, without the mark of one that another program made.
inline uint8_t typeOf(const xcb_generic_event_t& event) {
    return event.response_type & 0x7F;
}

/// Whether another program made the event.
inline bool isSent(uint8_t responseType) {
    return (responseType & 0x80) != 0;
}

template <typename T> const T& eventAs(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

} // namespace VSTGUI
