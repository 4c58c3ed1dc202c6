#include "vstgui/lib/controls/cmoviebitmap.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/controls/picturestrip.h"

namespace VSTGUI {

CMovieBitmap::CMovieBitmap(const CRect& viewSize, CControlListener* controlListener,
                           int32_t controlTag, CBitmap* background, const CPoint& pictureOffset)
    : CMovieBitmap(viewSize, controlListener, controlTag, // one picture is as high as the view
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
    const int32_t picture = nearestPosition(*this, subPixmaps);
    drawPicture(context, *this, offset + CPoint(0, heightOfOneImage * picture));
}

bool CMovieBitmap::sizeToFit() {
    return fitToPicture(*this, heightOfOneImage);
}

} // namespace VSTGUI
