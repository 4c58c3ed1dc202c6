#pragma once

#include <functional>
#include <map>
#include <string>

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/ccontrol.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"

namespace VSTGUI {

/// What a listener and the host hear of one complete edit of a control with tag 1.
constexpr const char* kOneEdit = "begin, host begins 1, value, host ends 1, end";

/// What happened, in order: "knob down, knob up".
class Log {
public:
    void add(const std::string& line) { text_ += (text_.empty() ? "" : ", ") + line; }
    std::string take() { return std::exchange(text_, {}); }

private:
    std::string text_;
};

/// A control that writes down what reaches it and, at the events that `script` names, does what the
/// test says.
class ScriptedControl : public CControl {
public:
    ScriptedControl(std::string controlName, const CRect& r, Log& l,
                    CControlListener* controlListener = nullptr)
        : CControl(r, controlListener, 7), name(std::move(controlName)), log(l) {}

    std::string name;
    Log& log;
    std::map<std::string, std::function<void()>> script;
    CMouseEventResult result = kMouseEventHandled; // of a press and of a move
    int32_t keyResult = -1;
    CPoint lastWhere;
    CButtonState lastButtons;
    VstKeyCode lastKey{};

    void draw(CDrawContext* /*context*/) override {
        happened("draw");
        setDirty(false);
    }
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override {
        return mouse("down", where, buttons);
    }
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override {
        return mouse("up", where, buttons);
    }
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override {
        return mouse("move", where, buttons);
    }
    CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons) override {
        return mouse("enter", where, buttons);
    }
    CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons) override {
        return mouse("exit", where, buttons);
    }
    using CView::onWheel;
    bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) override {
        mouse("wheel " + std::to_string(static_cast<int>(distance)), where, buttons);
        return result == kMouseEventHandled;
    }
    int32_t onKeyDown(VstKeyCode& keyCode) override {
        lastKey = keyCode;
        happened("key");
        return keyResult;
    }
    void takeFocus() override { happened("takes focus"); }
    void looseFocus() override { happened("loses focus"); }
    CLASS_METHODS_NOCOPY(ScriptedControl, CControl)

protected:
    ~ScriptedControl() override { log.add(name + " gone"); }

private:
    void happened(const std::string& event) {
        log.add(name + " " + event);
        if (const auto scripted = script.find(event); scripted != script.end())
            scripted->second();
    }
    CMouseEventResult mouse(const std::string& event, const CPoint& where, CButtonState buttons) {
        lastWhere = where;
        lastButtons = buttons;
        happened(event);
        return result;
    }
};

/// A container that writes down when the mouse comes and goes.
class LoggingContainer : public CViewContainer {
public:
    LoggingContainer(std::string containerName, const CRect& r, Log& l)
        : CViewContainer(r), name(std::move(containerName)), log(l) {}
    CMouseEventResult onMouseEntered(CPoint& /*where*/, const CButtonState& /*buttons*/) override {
        log.add(name + " enter");
        return kMouseEventNotHandled;
    }
    CMouseEventResult onMouseExited(CPoint& /*where*/, const CButtonState& /*buttons*/) override {
        log.add(name + " exit");
        return kMouseEventNotHandled;
    }
    int32_t onKeyDown(VstKeyCode& /*keyCode*/) override {
        log.add(name + " key");
        return -1;
    }
    std::string name;
    Log& log;
    CLASS_METHODS_NOCOPY(LoggingContainer, CViewContainer)
};

/// A frame of 200 by 100 pixels on an offscreen window, with a listener and an editor that log.
class ToolkitWindow : public VSTGUIEditorInterface, public CControlListener {
public:
    ToolkitWindow() {
        setPlatformFrameFactory(OffscreenFrame::create);
        frame = new CFrame(CRect(0, 0, 200, 100), this, this);
        window().turn();
    }
    ~ToolkitWindow() override {
        close();
        setPlatformFrameFactory(nullptr);
    }

    OffscreenFrame& window() { return OffscreenFrame::of(*frame); }
    CFrame& theFrame() { return *frame; }
    bool isOpen() const { return frame != nullptr; }
    void close() {
        if (CFrame* const closing = std::exchange(frame, nullptr))
            closing->close();
    }

    void click(CCoord x, CCoord y, int32_t buttons = kLButton) {
        window().mouseDown(x, y, buttons);
        window().mouseUp(x, y);
    }
    void press(VstVirtualKey key, int32_t modifiers = 0) { window().keyDown(key, modifiers); }

    ScriptedControl* add(const std::string& name, const CRect& r,
                         CViewContainer* parent = nullptr) {
        auto* const control = new ScriptedControl(name, r, log, this);
        (parent ? parent : frame)->addView(control);
        return control;
    }
    LoggingContainer* addContainer(const std::string& name, const CRect& r) {
        auto* const container = new LoggingContainer(name, r, log);
        frame->addView(container);
        return container;
    }

    void beginEdit(int32_t index) override { log.add("host begins " + std::to_string(index)); }
    void endEdit(int32_t index) override { log.add("host ends " + std::to_string(index)); }
    int32_t getKnobMode() const override { return knobMode; }
    bool beforeSizeChange(const CRect& /*to*/, const CRect& /*from*/) override { return mayResize; }
    void valueChanged(CControl* /*control*/) override {
        log.add("value");
        if (onValue)
            onValue();
    }
    int32_t controlModifierClicked(CControl* /*control*/, CButtonState button) override {
        log.add("modifier click");
        return (button & kAlt) ? 1 : 0;
    }
    void controlBeginEdit(CControl* /*control*/) override { log.add("begin"); }
    void controlEndEdit(CControl* /*control*/) override { log.add("end"); }

    Log log;
    ManualClock clock;
    std::function<void()> onValue;
    int32_t knobMode = kCircularMode;
    bool mayResize = true; // what the host says
};

} // namespace VSTGUI
