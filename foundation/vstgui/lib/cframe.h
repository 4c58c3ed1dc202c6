#pragma once

#include <vector>

#include "vstgui/lib/cviewcontainer.h"
#include "vstgui/lib/editorpump.h"
#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

/// How a circular mouse movement turns a knob.
enum CKnobMode { kCircularMode = 0, kRelativCircularMode, kLinearMode };

/// What a frame asks of the editor that opened it.
class VSTGUIEditorInterface {
public:
    virtual void doIdleStuff() {}
    virtual int32_t getKnobMode() const { return 0; }
    virtual void beginEdit(int32_t /*index*/) {}
    virtual void endEdit(int32_t /*index*/) {}
    /// @return whether the host agrees to the new size
    virtual bool beforeSizeChange(const CRect& /*newSize*/, const CRect& /*oldSize*/) {
        return true;
    }
    virtual CFrame* getFrame() const { return frame; }
    /// What serves the editor's timers; with null the frame has one of its own. An addition of this
    /// layer.
    virtual EditorPump* getPump() const { return nullptr; }

protected:
    VSTGUIEditorInterface() = default;
    virtual ~VSTGUIEditorInterface() = default;

    CFrame* frame = nullptr;
};

/// The topmost container: a window inside the host's.
///
/// Knows the views under the mouse, the view that has the keyboard, and a modal view that keeps the
/// mouse from all others. Ends with `close`, never with `forget`.
class CFrame : public CViewContainer, public IPlatformFrameCallback {
public:
    /// Opens a window inside `systemWindow`; with null there is none. Whether it worked is told by
    /// `getPlatformFrame`.
    CFrame(const CRect& size, void* systemWindow, VSTGUIEditorInterface* editor);

    /// Takes everything down and gives the frame back: the pointer is dead afterwards.
    virtual void close();
    /// Turns dirty views into areas to be redrawn.
    virtual void idle();
    virtual void doIdleStuff();
    virtual uint32_t getTicks() const; // milliseconds
    virtual int32_t getKnobMode() const;

    virtual bool setSize(CCoord width, CCoord height);
    virtual bool getSize(CRect& outSize) const;

    /// Window pixels per logical pixel, 1 at first. An addition of this layer.
    virtual bool setScaleFactor(double pixelsPerUnit);
    virtual double getScaleFactor() const;

    /// Puts `view` on top and gives it the mouse; null takes it away without giving it back, its
    /// creator owns it again. False when there is one already or `view` has a parent.
    virtual bool setModalView(CView* view);
    virtual CView* getModalView() const;

    /// To the editor, and so to the host.
    virtual void beginEdit(int32_t index);
    virtual void endEdit(int32_t index);

    /// Live state, not that of the last event.
    virtual bool getCurrentMouseLocation(CPoint& where) const;
    virtual CButtonState getCurrentMouseButtons() const;
    virtual void setCursor(CCursorType type);

    /// Gives `view` the keyboard, null takes it away. Only remembered while the window is inactive.
    virtual void setFocusView(CView* view);
    virtual CView* getFocusView() const;

    virtual void onViewAdded(CView* view);
    virtual void onViewRemoved(CView* view);
    virtual void onActivate(bool state);

    IPlatformFrame* getPlatformFrame() const { return platformFrame_; }
    /// An addition of this layer.
    EditorPump& getPump() const { return *pump_; }
    VSTGUIEditorInterface* getEditor() const override;

    CView* getViewAt(const CPoint& where, bool deep = false) const override;
    void invalidRect(const CRect& rect) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    int32_t onKeyUp(VstKeyCode& keyCode) override;
    bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) override;
    bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                 const CButtonState& buttons) override;
    CPoint& frameToLocal(CPoint& point) const override { return point; }
    CPoint& localToFrame(CPoint& point) const override { return point; }
    CLASS_METHODS_NOCOPY(CFrame, CViewContainer)

protected:
    ~CFrame() override;

    bool platformDrawRect(CDrawContext* context, const CRect& rect) override;
    CMouseEventResult platformOnMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult platformOnMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult platformOnMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult platformOnMouseExited(CPoint& where, const CButtonState& buttons) override;
    bool platformOnMouseWheel(const CPoint& where, const CMouseWheelAxis& axis,
                              const float& distance, const CButtonState& buttons) override;
    bool platformOnKeyDown(VstKeyCode& keyCode) override;
    bool platformOnKeyUp(VstKeyCode& keyCode) override;
    void platformOnActivate(bool state) override;

private:
    friend class CViewContainer; // asks where the mouse was when a child that holds it goes

    using KeyOperation = int32_t (CView::*)(VstKeyCode&);

    /// Around what comes from outside. Holds the frame: any call may close it.
    struct Entered {
        explicit Entered(CFrame* frame) : self(frame), call(frame->getPump()) {}
        CBaseObjectGuard self;
        EditorPump::Call call;
    };

    void noteMouse(const CPoint& where, const CButtonState& buttons);
    void updateHover(const CPoint& where, const CButtonState& buttons);
    void leaveHoveredFrom(std::size_t firstIndex, const CPoint& where, const CButtonState& buttons);
    void forgetHovered();
    std::vector<CView*> chainTo(CView* view) const; // outermost first, without the frame
    CMouseEventResult moveOverHovered(const CPoint& where, const CButtonState& buttons);
    CMouseEventResult pressModalView(CPoint& where, const CButtonState& buttons);
    void releasePlatformFrame();
    int32_t offerKey(KeyOperation operation, VstKeyCode& keyCode);
    bool moveFocus(bool reverse);

    VSTGUIEditorInterface* editor_;
    EditorPump* pump_; // remembered
    IPlatformFrame* platformFrame_ = nullptr;
    CView* modalView_ = nullptr;
    CView* focusView_ = nullptr;
    CView* focusWhenActive_ = nullptr;
    std::vector<CView*> hovered_; // outermost first, each remembered
    CPoint lastMouse_;
    CButtonState lastButtons_;
    double scaleFactor_ = 1.0;
    bool active_ = true;
    bool changingFocus_ = false;
    bool closing_ = false;
};

} // namespace VSTGUI
