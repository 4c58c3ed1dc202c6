#include "controls/CInvisibleDoNothingControl.h"

namespace pedl {

using namespace VSTGUI;

CInvisibleDoNothingControl::CInvisibleDoNothingControl(const CRect& viewSize,
                                                       CControlListener* controlListener,
                                                       int32_t controlTag)
    : CControl(viewSize, controlListener, controlTag, nullptr) {}

void CInvisibleDoNothingControl::draw(CDrawContext* /*context*/) {
    setDirty(false);
}

CMouseEventResult CInvisibleDoNothingControl::onMouseDown(CPoint& /*where*/,
                                                          const CButtonState& /*buttons*/) {
    const CBaseObjectGuard alive(this); // the listener may remove this control
    if (listener != nullptr)
        listener->valueChanged(this);
    invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

} // namespace pedl
