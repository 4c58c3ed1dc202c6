#include "controls/DragKnob.h"

#include "controls/WheelNotch.h"
#include "vstgui/lib/cbitmap.h"

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kDragPixels = 1000.0F; // of the whole range, at a `dragScale` of 1

} // namespace

DragKnob::DragKnob(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
                   int32_t frames, int32_t stripWidth, int32_t frameHeight, CBitmap* background,
                   const CPoint& pictureOffset)
    : BalancedEdits(viewSize, controlListener, controlTag, frames, static_cast<CCoord>(frameHeight),
                    background, pictureOffset),
      bitmapHeight(background ? static_cast<int32_t>(background->getHeight()) : 0),
      bitmapWidth(stripWidth) {
    frameCount = frameHeight > 0 ? bitmapHeight / frameHeight : 0;
}

void DragKnob::setFine(bool isFine) {
    fine = isFine;
    fineScale = isFine ? 1.0F / fineFactor : 1.0F;
    dragRange = dragScale * kDragPixels * (isFine ? fineFactor : 1.0F);
    dragCoef = (vmax - vmin) / dragRange;
}

CMouseEventResult DragKnob::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton() || listener == nullptr)
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    const bool wasAttached = isAttached();
    beginEdit();
    mouseActive = true;
    if ((buttons & kControl) || buttons.isDoubleClick()) {
        const float before = value;
        value = getDefaultValue();
        if (value != before || isDirty())
            valueChanged();
        endEdit();
        mouseActive = false;
        invalid();
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    startOldValue = oldValue;
    entryValue = value;
    halfRange = (vmax - vmin) / 2.0F;
    lastButtons = buttons;
    firstPoint = where;
    linearDrag = true;
    setFine((buttons & kShift) != 0);
    const CMouseEventResult result = onMouseMoved(where, buttons);
    if (wasAttached && !isAttached())
        mouseActive = false; // taken away by the listener: no release will come
    return result;
}

CMouseEventResult DragKnob::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventHandled; // stays in the drag: its release is still to come
    const CBaseObjectGuard self(this);
    const auto moved = static_cast<float>((where.x - firstPoint.x) + (firstPoint.y - where.y));
    if (buttons != lastButtons) {
        const float coefBefore = dragCoef;
        setFine((buttons & kShift) != 0);
        entryValue += (coefBefore - dragCoef) * moved; // or the value would jump
        lastButtons = buttons;
    }
    const float before = value;
    value = entryValue + moved * dragCoef;
    bounceValue();
    const bool isMoved = value != before;
    if (isMoved)
        valueChanged();
    if (isMoved || isDirty())
        invalid();
    return kMouseEventHandled;
}

CMouseEventResult DragKnob::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    mouseActive = false;
    endEdit();
    return kMouseEventHandled;
}

bool DragKnob::turnWheel(const CPoint& /*where*/, float distance, const CButtonState& buttons) {
    const float before = value;
    const float step = (buttons & kShift) ? wheelFineScale * wheelStep : wheelStep;
    value += step * oneNotch(distance);
    bounceValue();
    if ((value == before && !isDirty()) || listener == nullptr)
        return true;
    const CBaseObjectGuard self(this);
    mouseActive = true;
    beginEdit();
    valueChanged();
    invalid();
    endEdit();
    mouseActive = false;
    return true;
}

float DragKnob::getQuantizedValue() {
    const float finer = fine ? fineFactor : 1.0F;
    const auto steps = static_cast<float>(subPixmaps - 1);
    return static_cast<float>(static_cast<int32_t>(steps * value * finer + 0.5F)) / (finer * steps);
}

} // namespace pedl
