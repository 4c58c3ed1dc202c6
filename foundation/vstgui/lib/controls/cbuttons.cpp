#include "vstgui/lib/controls/cbuttons.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/controls/picturestrip.h"

#include <utility>

namespace VSTGUI {

namespace {

bool isReturn(const VstKeyCode& keyCode) {
    return keyCode.virt == VKEY_RETURN || keyCode.virt == VKEY_ENTER;
}

bool isPlainReturn(const VstKeyCode& keyCode) {
    return keyCode.modifier == 0 && isReturn(keyCode);
}

} // namespace

COnOffButton::COnOffButton(const CRect& viewSize, CControlListener* controlListener,
                           int32_t controlTag, CBitmap* background, int32_t styleBits)
    : CControl(viewSize, controlListener, controlTag, background), style(styleBits) {
    setWantsFocus(true);
}

COnOffButton::COnOffButton(const COnOffButton& button) = default;

COnOffButton::~COnOffButton() = default;

void COnOffButton::draw(CDrawContext* context) {
    // The upper half is off. On is the maximum alone: a host's value in between shows as off.
    const bool isOn = value == vmax && getBackground();
    drawPicture(context, *this, CPoint(0, isOn ? getBackground()->getHeight() / 2 : 0));
}

CMouseEventResult COnOffButton::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    toggle(); // at the press: there is nothing to wait for
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

int32_t COnOffButton::onKeyDown(VstKeyCode& keyCode) {
    if (!isPlainReturn(keyCode))
        return -1;
    toggle();
    return 1;
}

/// Shown first: who is told may take the button away.
void COnOffButton::toggle() {
    value = value == vmax ? vmin : vmax;
    invalid();
    beginEdit();
    valueChanged();
    endEdit();
}

bool COnOffButton::sizeToFit() {
    return getBackground() && fitToPicture(*this, getBackground()->getHeight() / 2);
}

CKickButton::CKickButton(const CRect& viewSize, CControlListener* controlListener,
                         int32_t controlTag, CCoord pictureHeight, CBitmap* background,
                         const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, background), offset(pictureOffset) {
    heightOfOneImage = pictureHeight;
    subPixmaps = 2;
    setWantsFocus(true);
}

CKickButton::CKickButton(const CKickButton& button)
    : CControl(button), IMultiBitmapControl(button), offset(button.offset) {}

CKickButton::~CKickButton() = default;

void CKickButton::draw(CDrawContext* context) {
    drawPicture(context, *this, offset + CPoint(0, value == vmax ? heightOfOneImage : 0));
}

/// What the picture shows is not told yet: the listener hears of it when the button is let go.
void CKickButton::show(float newValue) {
    value = newValue;
    if (isDirty())
        invalid();
}

CMouseEventResult CKickButton::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    beginEdit(); // ends with the release, wherever the mouse is by then
    return onMouseMoved(where, buttons);
}

CMouseEventResult CKickButton::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    show(size.pointInside(where) ? vmax : vmin);
    return kMouseEventHandled;
}

CMouseEventResult CKickButton::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    letGo();
    return kMouseEventHandled;
}

int32_t CKickButton::onKeyDown(VstKeyCode& keyCode) {
    if (!isPlainReturn(keyCode))
        return -1;
    if (!heldByKey_) { // not when the key repeats
        heldByKey_ = true;
        beginEdit();
        show(vmax);
    }
    return 1;
}

int32_t CKickButton::onKeyUp(VstKeyCode& keyCode) {
    if (!heldByKey_ || !isReturn(keyCode)) // a modifier may have come since the press
        return -1;
    heldByKey_ = false;
    letGo();
    return 1;
}

void CKickButton::looseFocus() {
    if (!std::exchange(heldByKey_, false))
        return;
    show(vmin); // nothing was told, so there is nothing to take back
    endEdit();
}

/// Told while it is still on, so that who looks at the value sees the kick, then again at rest.
void CKickButton::letGo() {
    if (value != vmin)
        valueChanged();
    show(vmin);
    valueChanged();
    endEdit();
}

bool CKickButton::sizeToFit() {
    return fitToPicture(*this, heightOfOneImage);
}

} // namespace VSTGUI
