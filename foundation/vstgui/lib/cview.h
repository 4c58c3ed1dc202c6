#pragma once

#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/crect.h"
#include "vstgui/lib/vstguibase.h"
#include "vstgui/lib/vstkeycode.h"

namespace VSTGUI {

class CDrawContext;
class CBitmap;
class CFrame;
class CViewContainer;
class VSTGUIEditorInterface;

enum CMouseWheelAxis { kMouseWheelAxisX = 0, kMouseWheelAxisY };

/// What a view did with a mouse event.
enum CMouseEventResult {
    kMouseEventNotImplemented = 0,
    kMouseEventHandled, // after a press: moves and the release go to this view alone
    kMouseEventNotHandled,
    kMouseDownEventHandledButDontNeedMovedOrUpEvents
};

enum CCursorType {
    kCursorDefault = 0,
    kCursorWait,
    kCursorHSize,
    kCursorVSize,
    kCursorSizeAll,
    kCursorNESWSize,
    kCursorNWSESize,
    kCursorCopy,
    kCursorNotAllowed,
    kCursorHand
};

/// Bits of `CButtonState`.
enum CButton {
    kLButton = 1 << 1,
    kMButton = 1 << 2,
    kRButton = 1 << 3,
    kShift = 1 << 4,
    kControl = 1 << 5,
    kAlt = 1 << 6,
    kApple = 1 << 7,
    kButton4 = 1 << 8,
    kButton5 = 1 << 9,
    kDoubleClick = 1 << 10, // on the second press only
    kMouseWheelInverted = 1 << 11
};

/// Mouse buttons and keyboard modifiers at one moment.
class CButtonState {
public:
    constexpr CButtonState(int32_t s = 0) : state(s) {}
    constexpr CButtonState(const CButtonState& other) : state(other.state) {}

    /// The five buttons alone.
    int32_t getButtonState() const {
        return state & (kLButton | kMButton | kRButton | kButton4 | kButton5);
    }
    /// The four modifiers alone.
    int32_t getModifierState() const { return state & (kShift | kAlt | kControl | kApple); }

    bool isLeftButton() const { return getButtonState() == kLButton; } // and no other button
    bool isRightButton() const { return getButtonState() == kRButton; }
    bool isDoubleClick() const { return (state & kDoubleClick) != 0; }

    int32_t operator()() const { return state; }
    CButtonState& operator=(const CButtonState& other) {
        state = other.state;
        return *this;
    }
    CButtonState& operator&=(int32_t s) {
        state &= s;
        return *this;
    }
    CButtonState& operator|=(int32_t s) {
        state |= s;
        return *this;
    }
    int32_t operator&(const CButtonState& s) const { return state & s.state; }
    int32_t operator|(const CButtonState& s) const { return state | s.state; }
    bool operator==(const CButtonState& s) const { return state == s.state; }
    bool operator!=(const CButtonState& s) const { return state != s.state; }

private:
    int32_t state;
};

/// A rectangle of the window that draws itself and takes events.
///
/// Its rectangle, and every `where` it receives, are in the space of its parent: a container's
/// top left corner is (0, 0) for its children. The destructor is protected: views are counted, and
/// given back with `forget`.
///
/// Thread: user interface, all of it.
class CView : public CBaseObject {
public:
    CView(const CRect& size);
    /// Shares the background; not attached.
    CView(const CView& view);
    CView& operator=(const CView&) = delete;

    // Drawing

    /// Draws the background, by default, and is clean then.
    virtual void draw(CDrawContext* context);
    virtual void drawRect(CDrawContext* context, const CRect& updateRect);
    virtual bool checkUpdate(const CRect& updateRect) const;
    virtual bool isDirty() const;
    /// Sets a mark and draws nothing: the frame's next `idle` asks for the redraw.
    virtual void setDirty(bool val = true);
    /// Asks for a redraw of `rect`, in the parent's space.
    virtual void invalidRect(const CRect& rect);
    /// Clean, and asks for a redraw of the whole view. Nothing when detached or hidden.
    virtual void invalid();
    virtual void setVisible(bool state);
    bool isVisible() const { return visible_; }

    // Events; a result is that of `CMouseEventResult`

    virtual CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons);
    virtual CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons);

    /// Whether the mouse area holds `where`, enabled or not.
    virtual bool hitTest(const CPoint& where, const CButtonState& buttons = -1);

    /// @param distance  notches, up is positive
    /// @return whether the wheel was used
    virtual bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons);
    /// Calls the other one by default, the horizontal axis with its sign turned.
    virtual bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                         const CButtonState& buttons);
    virtual void setMouseEnabled(bool enable = true);
    virtual bool getMouseEnabled() const;
    virtual void setMouseableArea(const CRect& rect);
    virtual CRect& getMouseableArea(CRect& rect) const;
    virtual const CRect& getMouseableArea() const;

    /// @return 1 when the key was used, else -1
    virtual int32_t onKeyDown(VstKeyCode& keyCode);
    virtual int32_t onKeyUp(VstKeyCode& keyCode);

    // Place and size

    CCoord getHeight() const { return size.height(); }
    CCoord getWidth() const { return size.width(); }
    /// Leaves the mouse area as it is, and the old place unpainted: who moves or shrinks a view
    /// invalidates that place through the parent.
    virtual void setViewSize(const CRect& rect, bool invalid = true);
    CRect& getViewSize(CRect& rect) const;
    const CRect& getViewSize() const { return size; }
    /// What the parents leave of the view, in the parent's space.
    virtual CRect getVisibleSize() const;
    virtual void parentSizeChanged();
    virtual CPoint& frameToLocal(CPoint& point) const;
    virtual CPoint& localToFrame(CPoint& point) const;
    virtual bool sizeToFit();

    // Keyboard focus

    virtual void looseFocus();
    virtual void takeFocus();
    virtual bool wantsFocus() const;
    virtual void setWantsFocus(bool state);

    // Looks

    virtual void setBackground(CBitmap* background);
    virtual CBitmap* getBackground() const;
    /// A transparent view lets presses that it does not handle through to what lies below.
    virtual void setTransparency(bool val);
    virtual bool getTransparency() const;
    virtual void setAlphaValue(float alpha);
    float getAlphaValue() const { return alpha_; }

    // Membership

    /// Called by the container. False when it is so already.
    virtual bool removed(CView* parent);
    virtual bool attached(CView* parent);
    bool isAttached() const { return attached_; }
    CView* getParentView() const { return pParentView; }
    CFrame* getFrame() const { return pParentFrame; }
    virtual VSTGUIEditorInterface* getEditor() const;

    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override;
    CLASS_METHODS(CView, CBaseObject)

protected:
    ~CView() override;

    CRect size, mouseableArea;
    CFrame* pParentFrame = nullptr;
    CView* pParentView = nullptr;
    CBitmap* pBackground = nullptr;

private:
    friend class CFrame; // attached to itself

    bool visible_ = true;
    bool mouseEnabled_ = true;
    bool transparent_ = false;
    bool dirty_ = false;
    bool wantsFocus_ = false;
    bool attached_ = false;
    float alpha_ = 1.0F;
};

} // namespace VSTGUI
