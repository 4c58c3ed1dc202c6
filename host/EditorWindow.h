#pragma once

#include "foundation/text/Result.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct xcb_connection_t;
struct xcb_screen_t;

namespace pedl {

struct WindowSize {
    int widthPixels = 0;
    int heightPixels = 0;
    bool operator==(const WindowSize&) const = default;
};

/// Rows from the top, three bytes a pixel: red, green, blue.
struct WindowPicture {
    WindowSize size;
    std::vector<std::uint8_t> bytes;
};

/// A window of the desktop that is as large as the editor in it, with a title and a button to close
/// it. The window manager gives it the keyboard, and the editor takes it when it is pressed.
///
/// When the X server or the window has gone, it says so in `state` and all else does nothing.
class EditorWindow {
public:
    using Clock = std::chrono::steady_clock;

    enum class State { Open, CloseWanted, Gone };

    /// On the display that the environment names, or why there is none.
    static Result<std::unique_ptr<EditorWindow>> open(const std::string& title, WindowSize size);
    /// Whether there is such a display.
    static Done findDisplay();
    ~EditorWindow();
    EditorWindow(const EditorWindow&) = delete;
    EditorWindow& operator=(const EditorWindow&) = delete;

    /// As plug-ins take it.
    [[nodiscard]] void* handle() const { return reinterpret_cast<void*>(std::uintptr_t{window_}); }
    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] WindowSize size() const { return size_; }
    void resize(WindowSize size);

    /// Takes events until that moment; returns before when a signal comes or the state changes.
    void serveUntil(Clock::time_point moment);

    /// Whether an editor has put a window of its own in here.
    [[nodiscard]] bool holdsAnEditor() const;
    /// What can be seen of it now. All of it must be on the screen.
    [[nodiscard]] Result<WindowPicture> picture() const;

private:
    explicit EditorWindow(xcb_connection_t* connection);

    void create(const std::string& title, WindowSize size);
    void fixSize();
    [[nodiscard]] std::uint32_t atom(const char* name) const;
    void takeEvents();
    void takeMessage(const void* event);

    xcb_connection_t* connection_;
    const xcb_screen_t* screen_;
    std::uint32_t window_ = 0;
    std::uint32_t protocols_ = 0; // atoms
    std::uint32_t deleteWindow_ = 0;
    std::uint32_t ping_ = 0;
    WindowSize size_;
    State state_ = State::Open;
};

} // namespace pedl
