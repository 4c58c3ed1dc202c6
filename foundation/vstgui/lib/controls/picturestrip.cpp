#include "vstgui/lib/controls/picturestrip.h"

#include "vstgui/lib/cbitmap.h"

namespace VSTGUI {

int32_t nearestPosition(const CControl& control, int32_t count) {
    const float last = static_cast<float>(count - 1);
    return static_cast<int32_t>(control.getValueNormalized() * last + 0.5F);
}

void drawPicture(CDrawContext* context, CControl& control, const CPoint& source) {
    if (CBitmap* strip = control.getBackground())
        strip->draw(context, control.getViewSize(), source);
    control.setDirty(false);
}

bool fitToPicture(CControl& control, CCoord pictureHeight) {
    const CBitmap* strip = control.getBackground();
    if (!strip)
        return false;
    const CRect fitting(control.getViewSize().getTopLeft(),
                        CPoint(strip->getWidth(), pictureHeight));
    control.setViewSize(fitting, true);
    control.setMouseableArea(fitting); // it does not follow the size by itself
    return true;
}

} // namespace VSTGUI
