#include "controls/ZMTIndicatorLED.h"

#include "vstgui/lib/cbitmap.h"

namespace pedl {

using namespace VSTGUI;

ZMTIndicatorLED::ZMTIndicatorLED(const CRect& viewSize, CControlListener* controlListener,
                                 int32_t controlTag, CBitmap* on, CBitmap* off,
                                 const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, off), onBitmap(on), offset(pictureOffset) {
    if (onBitmap)
        onBitmap->remember();
}

ZMTIndicatorLED::ZMTIndicatorLED(const ZMTIndicatorLED& other)
    : CControl(other), onBitmap(other.onBitmap), offset(other.offset) {
    if (onBitmap)
        onBitmap->remember();
}

ZMTIndicatorLED::~ZMTIndicatorLED() {
    if (onBitmap)
        onBitmap->forget();
}

void ZMTIndicatorLED::draw(CDrawContext* context) {
    if (CBitmap* const off = getBackground())
        off->draw(context, size, offset);
    if (onBitmap)
        onBitmap->draw(context, size, offset, value);
    setDirty(false);
}

} // namespace pedl
