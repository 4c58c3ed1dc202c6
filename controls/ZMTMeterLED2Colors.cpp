#include "controls/ZMTMeterLED2Colors.h"

#include <algorithm>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kSecondFrom = 0.708F;
constexpr float kFirstSlope = 1.41243F; // full at `kSecondFrom`
constexpr float kSecondSlope = 3.42468F;
constexpr float kSecondShift = 2.42468F;

} // namespace

ZMTMeterLED2Colors::ZMTMeterLED2Colors(const CRect& viewSize, CControlListener* controlListener,
                                       int32_t controlTag, CBitmap* first, CBitmap* second,
                                       CBitmap* off, const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, off), firstBitmap(first),
      secondBitmap(second), offset(pictureOffset) {}

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
