#include "controls/CAbout.h"

#include "controls/CSplashScreenMyView.h"
#include "vstgui/lib/cframe.h"

#include <utility>

namespace pedl {

using namespace VSTGUI;

CAbout::CAbout(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
               CBitmap* picture, const CRect& displayArea, const CPoint& pictureOffset,
               const CPoint& firstAnchor, const CPoint& textAnchor, CBitmap* link)
    : CSplashScreen(viewSize, controlListener, controlTag, picture, displayArea, pictureOffset),
      anchorA(firstAnchor), versionAnchor(textAnchor), linkBitmap(link) {
    dropView(); // the toolkit's picture; ours is made when it is shown
}

CAbout::CAbout(const CAbout& other)
    : CSplashScreen(other), anchorA(other.anchorA), versionAnchor(other.versionAnchor),
      linkBitmap(other.linkBitmap), opener_(other.opener_), address_(other.address_) {
    dropView();
}

void CAbout::dropView() {
    if (CView* const view = std::exchange(modalView, nullptr))
        view->forget();
}

void CAbout::setLink(DocumentOpener* opener, std::string address) {
    opener_ = opener;
    address_ = std::move(address);
}

void CAbout::openLink() {
    if (opener_)
        opener_->open(address_);
}

void CAbout::draw(CDrawContext* /*context*/) {
    setDirty(false);
}

CMouseEventResult CAbout::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    value = value == 0.0F ? 1.0F : 0.0F;
    if (value == 0.0F) {
        unSplash();
        return kMouseEventHandled;
    }
    dropView();
    auto* const view = new CSplashScreenMyView(toDisplay, this, anchorA, versionAnchor);
    view->setLinkBitmap(linkBitmap);
    modalView = view;
    if (!getFrame() || !getFrame()->setModalView(view))
        unSplash(); // there is no window, or something else is modal in it
    invalid();
    return kMouseEventHandled;
}

void CAbout::unSplash() {
    CSplashScreen::unSplash();
    dropView();
}

bool CAbout::removed(CView* parent) {
    CAbout::unSplash();
    return CSplashScreen::removed(parent);
}

} // namespace pedl
