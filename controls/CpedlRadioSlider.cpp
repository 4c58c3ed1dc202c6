#include "controls/CpedlRadioSlider.h"

namespace pedl {

using namespace VSTGUI;

CpedlRadioSlider::CpedlRadioSlider(const CRect& viewSize, CControlListener* controlListener,
                                   int32_t controlTag, int32_t firstPos, int32_t lastPos,
                                   CBitmap* handleBitmap, CBitmap* background,
                                   const CPoint& pictureOffset)
    : CPedlDelaySlider(viewSize, controlListener, controlTag, firstPos, lastPos, handleBitmap,
                       background, pictureOffset, kLeft | kHorizontal) {
    const double handleWidth = handle ? handle->getWidth() : 0.0;
    minPos = firstPos;
    if (minPos + rangeHandle + handleWidth > widthControl) {
        minPos = 0.0;
        rangeHandle = widthControl - handleWidth;
    }
    CPedlDelaySlider::setOffsetHandle(offsetHandle);
}

void CpedlRadioSlider::setSecondOverlay(CBitmap* bitmap) {
    secondOverlay = bitmap;
    setDirty();
}

void CpedlRadioSlider::setOverlaySelector(int32_t which) {
    overlaySelector = which;
    setDirty();
}

CBitmap* CpedlRadioSlider::shownOverlay() const {
    return overlaySelector == 0 ? overlay : secondOverlay;
}

} // namespace pedl
