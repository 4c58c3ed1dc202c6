#include "controls/ZMTOnOffButton.h"

#include "controls/FilmStrip.h"

namespace pedl {

using namespace VSTGUI;

ZMTOnOffButton::ZMTOnOffButton(const CRect& viewSize, CControlListener* controlListener,
                               int32_t controlTag, CBitmap* background)
    : BalancedEdits(viewSize, controlListener, controlTag, background, 0) {}

void ZMTOnOffButton::draw(CDrawContext* context) {
    CBitmap* const strip = getBackground();
    if (strip == nullptr)
        return;
    drawFrame(context, strip, size, value < 0.5F ? 0 : 1, strip->getHeight() * 0.5);
    setDirty(false);
}

CMouseEventResult ZMTOnOffButton::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    beginEdit();
    valueChanged();
    value = static_cast<int32_t>(value + 0.5F) == 0 ? 1.0F : 0.0F;
    valueChanged();
    endEdit();
    invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

} // namespace pedl
