#include "controls/CZMRockerSwitch.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cvstguitimer.h"

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr int32_t kPressResetMs = 100;
constexpr int32_t kWheelResetMs = 50;

} // namespace

CZMRockerSwitch::CZMRockerSwitch(const CRect& viewSize, CControlListener* controlListener,
                                 int32_t controlTag, int32_t frameHeight, CBitmap* background,
                                 const CPoint& pictureOffset, int32_t styleBits)
    : BalancedEdits(viewSize, controlListener, controlTag, static_cast<CCoord>(frameHeight),
                    background, pictureOffset, styleBits) {}

void CZMRockerSwitch::draw(CDrawContext* context) {
    int32_t frame = hoverSide < 0 ? 1 : hoverSide > 0 ? 2 : 0;
    if (value == -1.0F)
        frame = 3;
    else if (value == 1.0F)
        frame = 4;
    if (CBitmap* const strip = getBackground())
        strip->draw(context, size, offset + CPoint(0, frame * heightOfOneImage));
    setDirty(false);
}

/// The timer's message ends the edit that begins here.
void CZMRockerSwitch::tellAndReset(int32_t afterMs) {
    beginEdit();
    valueChanged();
    if (resetValueTimer == nullptr)
        resetValueTimer = new CVSTGUITimer(this, afterMs);
    resetValueTimer->stop(); // from the start, where one runs
    resetValueTimer->start();
}

CMouseEventResult CZMRockerSwitch::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    if (resetValueTimer != nullptr)
        endEdit(); // of the press or notch that the timer has not taken back yet
    value = where.x >= size.getCenter().x ? 1.0F : -1.0F;
    invalid();
    tellAndReset(kPressResetMs);
    return kMouseEventHandled;
}

CMouseEventResult CZMRockerSwitch::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    value = 0.0F;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CZMRockerSwitch::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        onMouseEntered(where, buttons);
    return kMouseEventHandled;
}

CMouseEventResult CZMRockerSwitch::onMouseEntered(CPoint& where, const CButtonState& /*buttons*/) {
    hoverSide = where.x < size.getCenter().x ? -1 : 1;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CZMRockerSwitch::onMouseExited(CPoint& /*where*/,
                                                 const CButtonState& /*buttons*/) {
    hoverSide = 0;
    invalid();
    return kMouseEventHandled;
}

bool CZMRockerSwitch::turnWheel(const CPoint& /*where*/, float distance,
                                const CButtonState& /*buttons*/) {
    if (!getMouseEnabled())
        return false;
    if (resetValueTimer != nullptr)
        return true; // the last notch is still shown
    const CBaseObjectGuard self(this);
    value = distance >= 0.0F ? 1.0F : -1.0F;
    tellAndReset(kWheelResetMs);
    return true;
}

} // namespace pedl
