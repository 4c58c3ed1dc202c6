#include "vstgui/lib/cbitmap.h"

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

namespace VSTGUI {

CBitmap::CBitmap(const CResourceDescription& desc)
    : platformBitmap_(IPlatformBitmap::create(desc)) {}

CBitmap::CBitmap(CCoord width, CCoord height)
    : platformBitmap_(IPlatformBitmap::create(CPoint(width, height))) {}

CBitmap::CBitmap(IPlatformBitmap* platformBitmap) : platformBitmap_(platformBitmap) {
    if (platformBitmap_)
        platformBitmap_->remember();
}

CBitmap::~CBitmap() {
    if (platformBitmap_)
        platformBitmap_->forget();
}

void CBitmap::draw(CDrawContext* context, const CRect& rect, const CPoint& offset, float alpha) {
    if (context)
        context->drawBitmap(this, rect, offset, alpha);
}

CCoord CBitmap::getWidth() const {
    CPoint size;
    return platformBitmap_ && platformBitmap_->getSize(size) ? size.x : 0;
}

CCoord CBitmap::getHeight() const {
    CPoint size;
    return platformBitmap_ && platformBitmap_->getSize(size) ? size.y : 0;
}

} // namespace VSTGUI
