#include "controls/CSaveLoadButton.h"

#include "vstgui/lib/cbitmap.h"

namespace pedl {

using namespace VSTGUI;

CSaveLoadButton::CSaveLoadButton(const CRect& viewSize, CControlListener* controlListener,
                                 int32_t controlTag, int32_t frameHeight, CBitmap* background,
                                 const CPoint& pictureOffset)
    : Hovering(viewSize, controlListener, controlTag, static_cast<CCoord>(frameHeight), background,
               pictureOffset) {}

void CSaveLoadButton::draw(CDrawContext* context) {
    const int32_t frame = value != 0.0F ? 2 : hover ? 1 : 0;
    if (CBitmap* const strip = getBackground())
        strip->draw(context, size, offset + CPoint(0, frame * heightOfOneImage));
    setDirty(false);
}

CMouseEventResult CSaveLoadButton::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    if (!(buttons.isLeftButton() || buttons.isRightButton()) || listener == nullptr)
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    value = buttons() == kRButton ? 0.5F : 1.0F;
    valueChanged();
    value = 0.0F;
    invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

} // namespace pedl
