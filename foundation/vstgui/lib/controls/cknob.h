#pragma once

#include "vstgui/lib/controls/ccontrol.h"

namespace VSTGUI {

/// A knob turned in circles or along a line, as the frame's knob mode says.
class CKnob : public CControl {
public:
    CKnob(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
          CBitmap* handle, const CPoint& offset = CPoint(0, 0), int32_t drawStyle = 0);
    CKnob(const CKnob& knob);

    /// How much finer the knob moves with Shift.
    virtual void setZoomFactor(float val) { zoomFactor = val; }
    virtual float getZoomFactor() const { return zoomFactor; }

    void draw(CDrawContext* context) override;
    bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CLASS_METHODS(CKnob, CControl)

protected:
    ~CKnob() override;

    CPoint offset;
    CBitmap* pHandle = nullptr;
    float zoomFactor = 1.5f;

private:
    bool stepBy(float steps, bool fine);
    void startFrom(const CPoint& where);
    float valueOnLine(const CPoint& where) const;
    float valueOnCircle(const CPoint& where) const;
    float valueAtAngle(const CPoint& where) const;

    CPoint firstPoint_; // of the drag
    float startValue_ = 0.0F;
    float startAngleValue_ = 0.0F; // where the circle was entered
    bool linear_ = false;
    bool relative_ = false;
    bool fine_ = false;
};

/// A knob that shows one picture of a strip for each position.
class CAnimKnob : public CKnob, public IMultiBitmapControl {
public:
    CAnimKnob(const CRect& size, CControlListener* listener, int32_t tag, int32_t subPixmaps,
              CCoord heightOfOneImage, CBitmap* background, const CPoint& offset = CPoint(0, 0));
    CAnimKnob(const CAnimKnob& knob);

    void draw(CDrawContext* context) override;
    bool sizeToFit() override;
    void setHeightOfOneImage(const CCoord& height) override; // counts the strip's pictures anew
    void setNumSubPixmaps(int32_t n) override;
    CLASS_METHODS(CAnimKnob, CKnob)

protected:
    ~CAnimKnob() override;
};

} // namespace VSTGUI
