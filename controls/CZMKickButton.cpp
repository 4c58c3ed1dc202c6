#include "controls/CZMKickButton.h"

#include "vstgui/lib/cbitmap.h"

namespace pedl {

using namespace VSTGUI;

CZMKickButton::CZMKickButton(const CRect& viewSize, CControlListener* controlListener,
                             int32_t controlTag, int32_t frameHeight, CBitmap* background,
                             const CPoint& pictureOffset, bool isDoubleClickOnly)
    : Hovering(viewSize, controlListener, controlTag, static_cast<CCoord>(frameHeight), background,
               pictureOffset),
      doubleClickOnly(isDoubleClickOnly) {}

void CZMKickButton::draw(CDrawContext* context) {
    const int32_t frame = pressed ? 2 : hover ? 1 : 0;
    if (CBitmap* const strip = getBackground())
        strip->draw(context, size, offset + CPoint(0, frame * heightOfOneImage));
    setDirty(false);
}

CMouseEventResult CZMKickButton::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton() || (doubleClickOnly && !buttons.isDoubleClick()))
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    const CBaseObjectGuard self(this);
    const CView* const parent = getParentView();
    pressed = true;
    value = doubleClickOnly && (buttons & kControl) ? 0.5F : 1.0F;
    valueChanged();
    invalid();
    if (getParentView() != parent)
        onMouseUp(where, buttons); // taken away by the listener: nobody else tells it
    return kMouseEventHandled;
}

CMouseEventResult CZMKickButton::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    value = 0.0F;
    pressed = false;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CZMKickButton::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    const CMouseEventResult result = Hovering::onMouseMoved(where, buttons);
    return pressed ? kMouseEventHandled : result;
}

} // namespace pedl
