#pragma once

#include "vstgui/lib/controls/ccontrol.h"

namespace VSTGUI {

/// A button that stays down until it is pressed again.
class COnOffButton : public CControl {
public:
    COnOffButton(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
                 int32_t style = 0);
    COnOffButton(const COnOffButton& button);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    bool sizeToFit() override;
    CLASS_METHODS(COnOffButton, CControl)

protected:
    ~COnOffButton() override;

    int32_t style;

private:
    void toggle();
};

/// A button that springs back: let go over itself it sends two messages, on and off; elsewhere off.
class CKickButton : public CControl, public IMultiBitmapControl {
public:
    CKickButton(const CRect& size, CControlListener* listener, int32_t tag, CCoord heightOfOneImage,
                CBitmap* background, const CPoint& offset = CPoint(0, 0));
    CKickButton(const CKickButton& button);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    int32_t onKeyUp(VstKeyCode& keyCode) override;
    void looseFocus() override; // takes a key's press back: its release goes elsewhere
    bool sizeToFit() override;
    CLASS_METHODS(CKickButton, CControl)

protected:
    ~CKickButton() override;

    CPoint offset;

private:
    void show(float newValue);
    void letGo();

    bool heldByKey_ = false;
};

} // namespace VSTGUI
