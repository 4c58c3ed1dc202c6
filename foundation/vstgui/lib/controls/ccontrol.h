#pragma once

#include "vstgui/lib/cview.h"

namespace VSTGUI {

class CControl;

/// Told of what the user does with a control. Not owned by it, and must outlive it.
class CControlListener {
public:
    virtual ~CControlListener() = default;
    virtual void valueChanged(CControl* control) = 0;
    /// A press with a modifier or the right button, before the control sees it.
    /// @return not 0: the press is used up
    virtual int32_t controlModifierClicked(CControl* /*control*/, CButtonState /*button*/) {
        return 0;
    }
    virtual void controlBeginEdit(CControl* /*control*/) {}
    virtual void controlEndEdit(CControl* /*control*/) {}
};

/// Style bits of the controls.
enum CControlEnum {
    kHorizontal = 1 << 0,
    kVertical = 1 << 1,
    kShadowText = 1 << 2,
    kLeft = 1 << 3,
    kRight = 1 << 4,
    kTop = 1 << 5,
    kBottom = 1 << 6,
    k3DIn = 1 << 7,
    k3DOut = 1 << 8,
    kPopupStyle = 1 << 9,
    kCheckStyle = 1 << 10,
    kMultipleCheckStyle, // kCheckStyle and the lowest bit
    kNoTextStyle = 1 << 11,
    kNoDrawStyle = 1 << 12,
    kDoubleClickStyle = 1 << 13,
    kNoFrame = 1 << 14
};

/// A view with a value that the user sets.
///
/// Dirty when its value is not the one last drawn, so storing a value is all it takes to have it
/// shown at the next idle. Starts dirty, value 0, range 0 to 1, default 0.5.
class CControl : public CView {
public:
    CControl(const CRect& size, CControlListener* listener = nullptr, int32_t tag = 0,
             CBitmap* background = nullptr);
    CControl(const CControl& c);

    /// Clamps and stores. No message, no redraw yet.
    virtual void setValue(float val);
    virtual float getValue() const { return value; }
    virtual void setValueNormalized(float val); // 0 to 1 from the least to the greatest value
    virtual float getValueNormalized() const;
    virtual void setMin(float val); // stores; the value stays where it is
    virtual float getMin() const { return vmin; }
    virtual void setMax(float val);
    virtual float getMax() const { return vmax; }

    /// No history but a mark: the value last drawn, or something else once the control is dirty.
    virtual void setOldValue(float val) { oldValue = val; }
    virtual float getOldValue() const { return oldValue; }
    virtual void setDefaultValue(float val) { defaultValue = val; }
    virtual float getDefaultValue() const { return defaultValue; }
    virtual void bounceValue(); // back into the range

    /// True for exactly left and Ctrl: goes back to the default, with an edit and a message when
    /// that changes the value.
    virtual bool checkDefaultValue(CButtonState button);

    /// Tells the listener, once.
    virtual void valueChanged();
    virtual void setTag(int32_t val) { tag = val; }
    virtual int32_t getTag() const { return tag; }

    /// To the listener, then to the host; `endEdit` the other way round. Not counted: a nested or
    /// unmatched call goes through as any other. Without a frame, to the listener alone.
    virtual void beginEdit();
    virtual void endEdit();
    virtual CControlListener* getListener() const { return listener; }
    virtual void setListener(CControlListener* l) { listener = l; }

    /// Which point of the background a display puts on its top left.
    virtual void setBackOffset(const CPoint& offset);
    virtual const CPoint& getBackOffset() const { return backOffset; }
    virtual void copyBackOffset(); // the view's own place
    virtual void setWheelInc(float val) { wheelInc = val; }
    virtual float getWheelInc() const { return wheelInc; }

    void draw(CDrawContext* context) override = 0;
    bool isDirty() const override;
    /// True also moves the old value away from the value, false makes them equal.
    void setDirty(bool val = true) override;

    // Of the process: set before the first editor opens, or never
    static int32_t kZoomModifier;         // a button bit: moves in small steps
    static int32_t kDefaultValueModifier; // a button bit: a left press goes to the default
    CLASS_METHODS_VIRTUAL(CControl, CView)

protected:
    ~CControl() override;

    /// Key modifiers as button bits.
    static int32_t mapVstKeyModifier(int32_t vstModifier);

    CControlListener* listener;
    int32_t tag;
    float oldValue = -1.0F;
    float defaultValue = 0.5F;
    float value = 0.0F;
    float vmin = 0.0F;
    float vmax = 1.0F;
    float wheelInc = 0.1F;
    CPoint backOffset;
};

/// A control whose bitmap is a strip of pictures of one height, one below the other.
class IMultiBitmapControl {
public:
    virtual ~IMultiBitmapControl() = default;
    virtual void setHeightOfOneImage(const CCoord& height) { heightOfOneImage = height; }
    virtual CCoord getHeightOfOneImage() const { return heightOfOneImage; }
    virtual void setNumSubPixmaps(int32_t n) { subPixmaps = n; }
    virtual int32_t getNumSubPixmaps() const { return subPixmaps; }

protected:
    CCoord heightOfOneImage = 0;
    int32_t subPixmaps = 0;
};

} // namespace VSTGUI

using VSTGUI::CControlListener;
