#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#include "tests/foundation/vstgui/ToolkitWindow.h"
#include "tests/foundation/vstgui/x11/HostProgram.h"
#include "tests/foundation/vstgui/x11/XServer.h"
#include "vstgui/lib/platform/linux/x11frame.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

/// In a test that needs a display.
#define PEDL_NEEDS_DISPLAY()                                                                       \
    if (!sharedXServer())                                                                          \
    GTEST_SKIP() << "Xvfb is not installed"

namespace VSTGUI {

/// An editor of 400 by 300 pixels in a host's window; the test is the host's idle.
class TestEditor : public AEffGUIEditor, public CControlListener {
public:
    static constexpr int kWidth = 400;
    static constexpr int kHeight = 300;

    TestEditor() : AEffGUIEditor(nullptr) {}
    ~TestEditor() override { close(); }

    bool open(void* window) override {
        AEffGUIEditor::open(window);
        frame = new CFrame(CRect(0, 0, kWidth, kHeight), window, this);
        return frame->getPlatformFrame() != nullptr;
    }
    void close() override {
        if (CFrame* const closing = std::exchange(frame, nullptr))
            closing->close();
        AEffGUIEditor::close();
    }
    void valueChanged(CControl* control) override {
        log.add("value " + std::to_string(static_cast<int>(control->getValue())));
        if (onValue)
            onValue();
    }
    void beginEdit(int32_t /*index*/) override {}
    void endEdit(int32_t /*index*/) override {}

    CFrame& theFrame() { return *frame; }
    X11Frame& window() { return static_cast<X11Frame&>(*frame->getPlatformFrame()); }
    ScriptedControl* add(const std::string& name, const CRect& r) {
        auto* const control = new ScriptedControl(name, r, log, this);
        frame->addView(control);
        return control;
    }

    Log log;
    std::function<void()> onValue;
};

/// A host with one open editor in it.
class EditorInHost {
public:
    explicit EditorInHost(uint8_t depth = 24)
        : host(TestEditor::kWidth, TestEditor::kHeight, depth), isOpen(editor.open(host.window())) {
        EXPECT_TRUE(isOpen);
        settle();
    }

    /// Lets the editor work until `condition` holds. False when it does not within five seconds.
    bool until(const std::function<bool()>& condition) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (std::chrono::steady_clock::now() < deadline) {
            editor.idle();
            host.serve();
            if (condition())
                return true;
            std::this_thread::sleep_for(std::chrono::microseconds(500)); // for the server
        }
        return false;
    }
    /// Lets the editor see everything that the server has sent, and the server everything of the
    /// editor's.
    void settle() {
        for (int turn = 0; turn < 4; ++turn) {
            if (editor.isOpen() && editor.theFrame().getPlatformFrame())
                roundTrip(editor.window().connection().xcb());
            editor.idle();
            host.serve();
        }
    }
    std::string logAfter(const std::function<void()>& action) {
        settle();
        editor.log.take();
        action();
        settle();
        return editor.log.take();
    }

    HostProgram host;
    TestEditor editor;
    bool isOpen;
};

} // namespace VSTGUI
