#include "controls/CZMOnOffButton.h"

#include "controls/FilmStrip.h"

namespace pedl {

using namespace VSTGUI;

CZMOnOffButton::CZMOnOffButton(const CRect& viewSize, CControlListener* controlListener,
                               int32_t controlTag, CBitmap* background)
    : Hovering(viewSize, controlListener, controlTag, background, 0) {}

void CZMOnOffButton::draw(CDrawContext* context) {
    CBitmap* const strip = getBackground();
    const int32_t frame = value == 1.0F ? 2 : hover && value == 0.0F ? 1 : 0;
    const auto frameHeight = strip ? static_cast<int32_t>(strip->getHeight() / 3) : 0;
    drawFrame(context, strip, size, frame, frameHeight);
    setDirty(false);
}

CMouseEventResult CZMOnOffButton::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    value = 1.0F - value;
    valueChanged();
    invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

} // namespace pedl
