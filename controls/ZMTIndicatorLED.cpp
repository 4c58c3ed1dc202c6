#include "controls/ZMTIndicatorLED.h"

namespace pedl {

using namespace VSTGUI;

ZMTIndicatorLED::ZMTIndicatorLED(const CRect& viewSize, CControlListener* controlListener,
                                 int32_t controlTag, CBitmap* on, CBitmap* off,
                                 const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, off), onBitmap(on), offset(pictureOffset) {}

void ZMTIndicatorLED::draw(CDrawContext* context) {
    if (CBitmap* const off = getBackground())
        off->draw(context, size, offset);
    if (onBitmap)
        onBitmap->draw(context, size, offset, value);
    setDirty(false);
}

} // namespace pedl
