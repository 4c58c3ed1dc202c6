#include "controls/CSplashScreenMyView.h"

#include "controls/CAbout.h"
#include "controls/FilmStrip.h"
#include "vstgui/lib/cframe.h"

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr const char* kVersionText = "v.1.0.0";
constexpr CPoint kVersionSize(120, 15);
constexpr CColor kVersionColour(215, 215, 215, 255);
constexpr int32_t kVersionFontStyle = 11; // bold and underlined, and a bit that means nothing

} // namespace

CSplashScreenMyView::CSplashScreenMyView(const CRect& toDisplay, CAbout* about,
                                         const CPoint& firstAnchor, const CPoint& textAnchor)
    : CControl(toDisplay, nullptr, 0, about ? about->getBackground() : nullptr), owner(about),
      anchorA(firstAnchor), versionAnchor(textAnchor) {}

void CSplashScreenMyView::setLinkBitmap(CBitmap* bitmap) {
    linkBitmap = bitmap;
    setDirty();
}

void CSplashScreenMyView::draw(CDrawContext* context) {
    if (CBitmap* const picture = getBackground())
        picture->draw(context, size);
    context->setFont(kNormalFontBig, 0, kVersionFontStyle);
    context->setFontColor(kVersionColour);
    context->drawString(kVersionText, CRect(size.getTopLeft() + versionAnchor, kVersionSize),
                        kLeftText, true);
    if (linkBitmap)
        drawFrame(context, linkBitmap, linkImageRect, hover ? 1 : 0, linkBitmap->getHeight() / 2);
    setDirty(false);
}

CMouseEventResult CSplashScreenMyView::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this), opener(owner);
    if (linkBitmap && isOverLink(where))
        owner->openLink();
    if (CFrame* const frame = getFrame())
        frame->setDirty();
    owner->unSplash();
    return kMouseEventHandled;
}

CMouseEventResult CSplashScreenMyView::onMouseMoved(CPoint& where,
                                                    const CButtonState& /*buttons*/) {
    hover = isOverLink(where);
    setDirty();
    return kMouseEventHandled;
}

CMouseEventResult CSplashScreenMyView::onMouseEntered(CPoint& where, const CButtonState& buttons) {
    return onMouseMoved(where, buttons);
}

CMouseEventResult CSplashScreenMyView::onMouseExited(CPoint& /*where*/,
                                                     const CButtonState& /*buttons*/) {
    hover = false;
    setDirty();
    return kMouseEventHandled;
}

} // namespace pedl
