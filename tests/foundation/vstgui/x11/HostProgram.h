#pragma once

#include <string>

#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// Waits until the server has done everything that was asked of it so far.
inline void roundTrip(xcb_connection_t* xcb) {
    owned(xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
}

/// The other side of the server: a host with a window for the editor, another program with a
/// clipboard, and the hands on mouse and keyboard.
class HostProgram {
public:
    // The window's place on the screen
    static constexpr int kX = 100;
    static constexpr int kY = 80;

    HostProgram(int width, int height, uint8_t depth = 24);
    ~HostProgram();
    HostProgram(const HostProgram&) = delete;
    HostProgram& operator=(const HostProgram&) = delete;

    void* window() const { return reinterpret_cast<void*>(uintptr_t{window_}); }
    xcb_window_t windowId() const { return window_; }
    xcb_connection_t* xcb() const { return connection_; }
    void destroyWindow();
    void sync() const { roundTrip(connection_); }

    // Mouse and keyboard; places are those of the window's own pixels, and may lie outside
    void moveTo(int x, int y);
    void button(uint8_t number, bool isDown);
    void click(int x, int y, uint8_t number = 1);
    void notch(uint8_t number) { button(number, true), button(number, false); }
    void key(xcb_keysym_t symbol, bool isDown);
    void keycode(uint8_t code, bool isDown);
    void type(xcb_keysym_t symbol); // with Shift where the symbol needs it
    void type(const std::string& text);
    void withHeld(xcb_keysym_t modifier, xcb_keysym_t symbol);
    void takeFocus();

    /// Says something of the XEmbed protocol to the editor's window.
    void sayEmbedding(void* editorWindow, uint32_t message, uint32_t data = 0);

    /// What the window was told since the last call: "press Space, release Space,
    /// focus wanted".
    std::string takeKeys();
    /// A second window over a part of the first.
    xcb_window_t cover(int x, int y, int width, int height);
    void uncover(xcb_window_t cover);

    uint32_t pixelAt(int x, int y) const; // 0xRRGGBB, what lies on top

    // Another program with text

    enum class Habit { Plain, InPieces, Refuses, Silent };
    void own(const char* selection, const std::string& text, Habit habit = Habit::Plain);
    /// The owner's text, while `pump` lets the owner work. "(none)" when it is refused.
    template <typename Pump> std::string ask(const char* selection, const char* target, Pump pump) {
        beginAsking(selection, target);
        pump([this] { return hasAnswer(); });
        return answer_;
    }
    /// Answers requests for the text that it owns.
    void serve();
    xcb_atom_t atom(const char* name) const;

private:
    void fake(uint8_t type, uint8_t detail, int x = 0, int y = 0);
    uint8_t keycodeOf(xcb_keysym_t symbol, bool& needsShift) const;
    std::string nameOf(uint8_t keycode) const;
    void beginAsking(const char* selection, const char* target);
    bool hasAnswer();
    void take(const xcb_generic_event_t& event);
    void provide(const xcb_selection_request_event_t& request);

    xcb_connection_t* connection_;
    const xcb_screen_t* screen_;
    xcb_window_t window_;
    XcbOwned<xcb_get_keyboard_mapping_reply_t> keyboard_;
    std::string keys_;
    std::string answer_;
    bool isAnswered_ = false;

    std::string text_; // owned
    Habit habit_ = Habit::Plain;
};

} // namespace VSTGUI
