#include "controls/ZMTMonoAndBistableButton.h"

#include "controls/FilmStrip.h"

#include <algorithm>

namespace pedl {

using namespace VSTGUI;

namespace {

bool isPlainReturn(const VstKeyCode& keyCode) {
    return keyCode.virt == VKEY_RETURN && keyCode.modifier == 0;
}

} // namespace

ZMTMonoAndBistableButton::ZMTMonoAndBistableButton(const CRect& viewSize,
                                                   CControlListener* controlListener,
                                                   int32_t controlTag, CBitmap* background)
    : BalancedEdits(viewSize, controlListener, controlTag, background) {
    heightOfOneImage = background ? background->getHeight() / 2 : 0;
    subPixmaps = 2;
    setWantsFocus(true);
}

float ZMTMonoAndBistableButton::pressedValue() const {
    return mode == kFirstMomentary ? vmin : vmax;
}

float ZMTMonoAndBistableButton::startValue() const {
    return mode == kSecondMomentary ? vmin : vmax;
}

float ZMTMonoAndBistableButton::secondFrameValue() const {
    return mode == kFirstMomentary ? vmin : vmax;
}

void ZMTMonoAndBistableButton::setMode(int32_t newMode) {
    const CBaseObjectGuard self(this);
    mode = std::clamp<int32_t>(newMode, kFirstMomentary, kToggle);
    value = startValue();
    modeChangeNotification = true;
    valueChanged();
    modeChangeNotification = false;
    invalid();
}

void ZMTMonoAndBistableButton::setFlag(bool state) {
    flag = state;
    setDirty();
}

void ZMTMonoAndBistableButton::draw(CDrawContext* context) {
    if (CBitmap* const strip = getBackground())
        strip->draw(context, size,
                    offset + CPoint(0, value == secondFrameValue() ? heightOfOneImage : 0));
    setDirty(false);
}

void ZMTMonoAndBistableButton::press() {
    if (mode == kToggle)
        value = value == 0.0F ? vmax : vmin;
    else
        value = pressedValue();
    valueChanged();
}

CMouseEventResult ZMTMonoAndBistableButton::onMouseDown(CPoint& where,
                                                        const CButtonState& buttons) {
    modeChangeNotification = false;
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    const CView* const parent = getParentView();
    isHeld_ = true;
    beginEdit();
    press();
    invalid();
    if (getParentView() != parent)
        onMouseUp(where, buttons); // taken away by the listener: nobody else tells it
    return kMouseEventHandled;
}

CMouseEventResult ZMTMonoAndBistableButton::onMouseUp(CPoint& /*where*/,
                                                      const CButtonState& /*buttons*/) {
    const CBaseObjectGuard self(this);
    modeChangeNotification = false;
    isHeld_ = false;
    if (mode != kToggle) {
        value = otherEnd(pressedValue());
        valueChanged();
    }
    invalid();
    endEdit();
    return kMouseEventHandled;
}

/// Handled, so that a move does not cost the button its release.
CMouseEventResult ZMTMonoAndBistableButton::onMouseMoved(CPoint& /*where*/,
                                                         const CButtonState& /*buttons*/) {
    return isHeld_ ? kMouseEventHandled : kMouseEventNotHandled;
}

int32_t ZMTMonoAndBistableButton::onKeyDown(VstKeyCode& keyCode) {
    if (!isPlainReturn(keyCode))
        return -1;
    const CBaseObjectGuard self(this);
    if (static_cast<float>(mode) < vmax) {
        value = pressedValue();
        valueChanged();
    }
    invalid();
    endEdit();
    return 1;
}

int32_t ZMTMonoAndBistableButton::onKeyUp(VstKeyCode& keyCode) {
    if (!isPlainReturn(keyCode))
        return -1;
    const CBaseObjectGuard self(this);
    if (vmax <= static_cast<float>(mode))
        value = value == 0.0F ? vmax : vmin;
    else
        value = otherEnd(pressedValue());
    invalid();
    endEdit();
    return 1;
}

} // namespace pedl
