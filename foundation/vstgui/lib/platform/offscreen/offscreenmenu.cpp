#include "vstgui/lib/platform/offscreen/offscreenmenu.h"

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"

namespace VSTGUI {

IPlatformOptionMenu* createOffscreenOptionMenu(OffscreenFrame& frame) {
    return new OffscreenMenu(frame);
}

OffscreenMenu::OffscreenMenu(OffscreenFrame& frame) : FrameMenu(frame) {}

OffscreenMenu::~OffscreenMenu() = default;

OffscreenMenu* OffscreenMenu::of(OffscreenFrame& frame) {
    return dynamic_cast<OffscreenMenu*>(frame.overlay());
}

bool OffscreenMenu::show(const CRect& place) {
    place_ = place;
    image_ =
        std::make_unique<PixmanSurface>(place.width(), place.height(), frame().getScaleFactor());
    return true;
}

void OffscreenMenu::hide() {
    image_.reset();
}

const PixmanSurface& OffscreenMenu::image() {
    if (list() && list()->needsRedraw()) {
        CDrawContext* context = createPixmanContext(*image_);
        context->beginDraw();
        list()->draw(*context);
        context->endDraw();
        context->forget();
    }
    return *image_;
}

} // namespace VSTGUI
