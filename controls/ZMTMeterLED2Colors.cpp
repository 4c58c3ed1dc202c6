#include "controls/ZMTMeterLED2Colors.h"

#include "vstgui/lib/cbitmap.h"

#include <algorithm>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kSecondFrom = 0.708F;
constexpr float kFirstSlope = 1.41243F; // full at `kSecondFrom`
constexpr float kSecondSlope = 3.42468F;
constexpr float kSecondShift = 2.42468F;

void rememberIfThere(CBitmap* bitmap) {
    if (bitmap)
        bitmap->remember();
}

} // namespace

ZMTMeterLED2Colors::ZMTMeterLED2Colors(const CRect& viewSize, CControlListener* controlListener,
                                       int32_t controlTag, CBitmap* first, CBitmap* second,
                                       CBitmap* off, const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, off), firstBitmap(first),
      secondBitmap(second), offset(pictureOffset) {
    rememberIfThere(firstBitmap);
    rememberIfThere(secondBitmap);
}

ZMTMeterLED2Colors::ZMTMeterLED2Colors(const ZMTMeterLED2Colors& other)
    : CControl(other), firstBitmap(other.firstBitmap), secondBitmap(other.secondBitmap),
      offset(other.offset) {
    rememberIfThere(firstBitmap);
    rememberIfThere(secondBitmap);
}

ZMTMeterLED2Colors::~ZMTMeterLED2Colors() {
    if (firstBitmap)
        firstBitmap->forget();
    if (secondBitmap)
        secondBitmap->forget();
}

void ZMTMeterLED2Colors::draw(CDrawContext* context) {
    if (CBitmap* const off = getBackground())
        off->draw(context, size, offset);
    if (firstBitmap && secondBitmap) {
        firstBitmap->draw(context, size, offset, std::min(1.0F, value * kFirstSlope));
        if (value > kSecondFrom)
            secondBitmap->draw(context, size, offset,
                               std::min(1.0F, value * kSecondSlope - kSecondShift));
    }
    setDirty(false);
}

} // namespace pedl
