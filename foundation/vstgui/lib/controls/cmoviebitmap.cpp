#include "vstgui/lib/controls/cmoviebitmap.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"

namespace VSTGUI {

CMovieBitmap::CMovieBitmap(const CRect& viewSize, CControlListener* controlListener,
                           int32_t controlTag, CBitmap* background, const CPoint& pictureOffset)
    : CMovieBitmap(viewSize, controlListener, controlTag,
                   background && viewSize.height() > 0
                       ? static_cast<int32_t>(background->getHeight() / viewSize.height())
                       : 0,
                   viewSize.height(), background, pictureOffset) {}

CMovieBitmap::CMovieBitmap(const CRect& viewSize, CControlListener* controlListener,
                           int32_t controlTag, int32_t pictures, CCoord pictureHeight,
                           CBitmap* background, const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, background), offset(pictureOffset) {
    subPixmaps = pictures;
    heightOfOneImage = pictureHeight;
}

CMovieBitmap::CMovieBitmap(const CMovieBitmap& movie) = default;

CMovieBitmap::~CMovieBitmap() = default;

void CMovieBitmap::draw(CDrawContext* context) {
    if (CBitmap* strip = getBackground()) {
        const float last = static_cast<float>(subPixmaps - 1);
        const auto picture = static_cast<int32_t>(getValueNormalized() * last + 0.5F);
        strip->draw(context, size, offset + CPoint(0, heightOfOneImage * picture));
    }
    setDirty(false);
}

bool CMovieBitmap::sizeToFit() {
    if (!getBackground())
        return false;
    const CRect fitting(size.getTopLeft(), CPoint(getBackground()->getWidth(), heightOfOneImage));
    setViewSize(fitting, true);
    setMouseableArea(fitting);
    return true;
}

} // namespace VSTGUI
