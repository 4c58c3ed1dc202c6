#include "vstgui/lib/controls/csplashscreen.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cframe.h"

namespace VSTGUI {

namespace {

/// The picture over the frame. Tells its listener when it is pressed.
class SplashPicture : public CControl {
public:
    SplashPicture(const CRect& viewSize, CControlListener* splashScreen, CBitmap* picture,
                  const CPoint& pictureOffset)
        : CControl(viewSize, splashScreen, 0, picture), offset_(pictureOffset) {}

    void draw(CDrawContext* context) override {
        if (CBitmap* picture = getBackground())
            picture->draw(context, size, offset_);
        setDirty(false);
    }

    CMouseEventResult onMouseDown(CPoint& /*where*/, const CButtonState& buttons) override {
        if (!buttons.isLeftButton())
            return kMouseEventNotHandled;
        valueChanged(); // takes this view off the frame
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    CLASS_METHODS_NOCOPY(SplashPicture, CControl)

private:
    CPoint offset_;
};

} // namespace

CSplashScreen::CSplashScreen(const CRect& viewSize, CControlListener* controlListener,
                             int32_t controlTag, CBitmap* background, const CRect& displayArea,
                             const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, background), toDisplay(displayArea),
      offset(pictureOffset),
      modalView(new SplashPicture(displayArea, this, background, pictureOffset)) {}

CSplashScreen::CSplashScreen(const CRect& viewSize, CControlListener* controlListener,
                             int32_t controlTag, CView* splashView)
    : CControl(viewSize, controlListener, controlTag), modalView(splashView) {
    if (splashView)
        toDisplay = splashView->getViewSize();
}

CSplashScreen::CSplashScreen(const CSplashScreen& splashScreen)
    : CControl(splashScreen), toDisplay(splashScreen.toDisplay), keepSize(splashScreen.keepSize),
      offset(splashScreen.offset),
      modalView(new SplashPicture(toDisplay, this, getBackground(), offset)) {}

CSplashScreen::~CSplashScreen() {
    if (modalView)
        modalView->forget();
}

void CSplashScreen::draw(CDrawContext* /*context*/) {
    setDirty(false);
}

// Other buttons press what lies below.
bool CSplashScreen::hitTest(const CPoint& where, const CButtonState& buttons) {
    return (buttons & kLButton) != 0 && CControl::hitTest(where, buttons);
}

CRect& CSplashScreen::getDisplayArea(CRect& rect) const {
    rect = toDisplay;
    return rect;
}

CMouseEventResult CSplashScreen::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    value = value == vmin ? vmax : vmin;
    if (value != vmin && modalView && getFrame()) {
        modalView->setViewSize(toDisplay);
        modalView->setMouseableArea(toDisplay);
        if (getFrame()->setModalView(modalView))
            CControl::valueChanged();
        else
            value = vmin; // another view is modal
    }
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

bool CSplashScreen::removed(CView* parent) {
    CSplashScreen::unSplash(); // not an override: its listener may be closing the window
    return CControl::removed(parent);
}

void CSplashScreen::unSplash() {
    value = vmin;
    CFrame* frame = getFrame();
    if (frame && modalView && frame->getModalView() == modalView)
        frame->setModalView(nullptr); // the view stays ours
}

void CSplashScreen::valueChanged(CControl* control) {
    if (control != modalView)
        return;
    const CBaseObjectGuard guard(this);
    unSplash(); // before it is told: the listener may show something modal of its own
    CControl::valueChanged();
}

} // namespace VSTGUI
