#include "vstgui/lib/coffscreencontext.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

COffscreenContext::COffscreenContext(CBitmap* bitmap)
    : CDrawContext(CRect(0, 0, bitmap->getWidth(), bitmap->getHeight())), bitmap_(bitmap) {}

COffscreenContext::~COffscreenContext() {
    bitmap_->forget();
}

COffscreenContext* COffscreenContext::create(CFrame* frame, CCoord width, CCoord height) {
    IPlatformFrame* platformFrame = frame ? frame->getPlatformFrame() : nullptr;
    return platformFrame ? platformFrame->createOffscreenContext(width, height) : nullptr;
}

void COffscreenContext::copyFrom(CDrawContext* context, CRect destRect, CPoint srcOffset) {
    bitmap_->draw(context, destRect, srcOffset);
}

} // namespace VSTGUI
