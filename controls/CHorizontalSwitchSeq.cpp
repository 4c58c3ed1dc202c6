#include "controls/CHorizontalSwitchSeq.h"

namespace pedl {

using namespace VSTGUI;

CHorizontalSwitchSeq::CHorizontalSwitchSeq(const CRect& viewSize, CControlListener* controlListener,
                                           int32_t controlTag, int32_t frames, CCoord frameHeight,
                                           int32_t iMaxPositions, CBitmap* background,
                                           const CPoint& pictureOffset)
    : BalancedEdits(viewSize, controlListener, controlTag, frames, frameHeight, iMaxPositions,
                    background, pictureOffset) {}

CMouseEventResult CHorizontalSwitchSeq::onMouseDown(CPoint& /*where*/,
                                                    const CButtonState& /*buttons*/) {
    const CBaseObjectGuard self(this);
    beginEdit();
    // Not put back on the grid of positions: a value from elsewhere keeps its distance to it.
    value += subPixmaps > 1 ? 1.0F / static_cast<float>(subPixmaps - 1) : 0.0F;
    if (value > 1.0F)
        value = 0.0F;
    valueChanged();
    endEdit();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

} // namespace pedl
