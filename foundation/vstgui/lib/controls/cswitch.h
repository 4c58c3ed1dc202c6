#pragma once

#include "vstgui/lib/controls/ccontrol.h"

namespace VSTGUI {

/// A switch of several positions from top to bottom, a strip of pictures.
class CVerticalSwitch : public CControl, public IMultiBitmapControl {
public:
    CVerticalSwitch(const CRect& size, CControlListener* listener, int32_t tag, int32_t subPixmaps,
                    CCoord heightOfOneImage, int32_t iMaxPositions, CBitmap* background,
                    const CPoint& offset = CPoint(0, 0));
    CVerticalSwitch(const CVerticalSwitch& other);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    bool sizeToFit() override;
    CLASS_METHODS(CVerticalSwitch, CControl)

protected:
    ~CVerticalSwitch() override;

    CPoint offset;

private:
    int32_t positions_;
};

/// A switch of several positions from left to right, a strip of pictures.
class CHorizontalSwitch : public CControl, public IMultiBitmapControl {
public:
    CHorizontalSwitch(const CRect& size, CControlListener* listener, int32_t tag,
                      int32_t subPixmaps, CCoord heightOfOneImage, int32_t iMaxPositions,
                      CBitmap* background, const CPoint& offset = CPoint(0, 0));
    CHorizontalSwitch(const CHorizontalSwitch& other);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    bool sizeToFit() override;
    CLASS_METHODS(CHorizontalSwitch, CControl)

protected:
    ~CHorizontalSwitch() override;

    CPoint offset;

private:
    int32_t positions_;
};

class CVSTGUITimer;

/// A switch with a resting place between two sides, to which it returns when let go.
class CRockerSwitch : public CControl, public IMultiBitmapControl {
public:
    CRockerSwitch(const CRect& size, CControlListener* listener, int32_t tag,
                  CCoord heightOfOneImage, CBitmap* background, const CPoint& offset = CPoint(0, 0),
                  const int32_t style = kHorizontal);
    CRockerSwitch(const CRockerSwitch& rswitch);

    void draw(CDrawContext* context) override;
    bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    int32_t onKeyUp(VstKeyCode& keyCode) override;
    void looseFocus() override; // the release of a key that is held goes elsewhere now
    CLASS_METHODS(CRockerSwitch, CControl)

protected:
    ~CRockerSwitch() override;
    /// Back to the middle some time after the wheel; the listener hears of it when that moved it.
    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override;

    CPoint offset;
    int32_t style;
    CVSTGUITimer* resetValueTimer = nullptr;

private:
    float middle() const;
    float sideAt(const CPoint& where) const;
    void releaseKey();

    unsigned char heldKey_ = 0; // the arrow whose press began an edit
};

} // namespace VSTGUI
