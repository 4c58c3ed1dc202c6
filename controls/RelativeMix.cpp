#include "controls/RelativeMix.h"

#include "controls/FilmStrip.h"
#include "controls/WheelNotch.h"

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kDragPixels = 1000.0F; // of the whole range, at a `dragScale` of 1
constexpr int32_t kFrames = 4;

} // namespace

RelativeMix::RelativeMix(const CRect& viewSize, CControlListener* controlListener,
                         int32_t controlTag, CBitmap* background)
    : Hovering(viewSize, controlListener, controlTag, background) {
    value = kRest;
}

void RelativeMix::setActive(bool state) {
    if (active == state)
        return;
    active = state;
    invalid();
}

void RelativeMix::draw(CDrawContext* context) {
    CBitmap* const strip = getBackground();
    const int32_t frame = (active ? 2 : 0) + (hover ? 1 : 0);
    drawFrame(context, strip, size, frame, strip ? strip->getHeight() / kFrames : 0.0);
    setDirty(false);
}

void RelativeMix::takeRange(const CButtonState& buttons) {
    dragRange = kDragPixels * dragScale * ((buttons & kShift) ? fineFactor : 1.0F);
    dragCoef = (vmax - vmin) / dragRange;
    lastButtons = buttons;
}

CMouseEventResult RelativeMix::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton() || listener == nullptr)
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    beginEdit();
    if ((buttons & kControl) || buttons.isDoubleClick()) {
        value = kReset;
        valueChanged();
        endEdit();
        value = kRest; // or a second reset would be none
        invalid();
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    value = entryValue = kRest;
    halfRange = (vmax - vmin) / 2.0F;
    linearDrag = true;
    takeRange(buttons);
    lastPoint = where;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult RelativeMix::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    if (!buttons.isLeftButton()) {
        invalid();
        return kMouseEventHandled; // stays in the drag: its release is still to come
    }
    const auto moved =
        static_cast<float>(2.0 * ((where.x - lastPoint.x) + (lastPoint.y - where.y)));
    lastPoint = where;
    if (buttons != lastButtons)
        takeRange(buttons);
    value = entryValue - moved * dragCoef;
    valueChanged();
    return kMouseEventHandled;
}

CMouseEventResult RelativeMix::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    const CBaseObjectGuard self(this);
    endEdit();
    value = kRest;
    invalid();
    return kMouseEventHandled;
}

bool RelativeMix::turnWheel(const CPoint& /*where*/, float distance, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    const float step = (buttons & kShift) ? wheelStep * wheelFineScale : wheelStep;
    value = kRest - step * oneNotch(distance);
    if (listener != nullptr) {
        beginEdit();
        valueChanged();
        invalid();
        endEdit();
    }
    value = kRest;
    return true;
}

} // namespace pedl
