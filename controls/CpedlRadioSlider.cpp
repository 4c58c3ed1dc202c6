#include "controls/CpedlRadioSlider.h"

#include "vstgui/lib/cbitmap.h"

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

CpedlRadioSlider::CpedlRadioSlider(const CpedlRadioSlider& other)
    : CPedlDelaySlider(other), secondOverlay(other.secondOverlay),
      overlaySelector(other.overlaySelector) {
    if (secondOverlay)
        secondOverlay->remember();
}

CpedlRadioSlider::~CpedlRadioSlider() {
    if (secondOverlay)
        secondOverlay->forget();
}

void CpedlRadioSlider::setSecondOverlay(CBitmap* bitmap) {
    replace(secondOverlay, bitmap);
}

void CpedlRadioSlider::setOverlaySelector(int32_t which) {
    overlaySelector = which;
    setDirty();
}

CBitmap* CpedlRadioSlider::shownOverlay() const {
    return overlaySelector == 0 ? overlay : secondOverlay;
}

} // namespace pedl
