#include "controls/CPedlDelaySlider.h"

#include <algorithm>
#include <utility>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr int32_t kInvertingBits = kRight | kBottom;
constexpr float kWheelStep = 0.025F; // of the wheel's turn, in wheel increments
constexpr float kFineStep = 0.1F;    // with Shift

bool isArrow(const VstKeyCode& keyCode) {
    return keyCode.virt == VKEY_UP || keyCode.virt == VKEY_DOWN || keyCode.virt == VKEY_LEFT ||
           keyCode.virt == VKEY_RIGHT;
}

} // namespace

CPedlDelaySlider::CPedlDelaySlider(const CRect& viewSize, CControlListener* controlListener,
                                   int32_t controlTag, int32_t firstPos, int32_t lastPos,
                                   CBitmap* handleBitmap, CBitmap* background,
                                   const CPoint& pictureOffset, int32_t styleBits)
    : BalancedEdits(viewSize, controlListener, controlTag, background), offset(pictureOffset),
      handle(handleBitmap), style(styleBits), rangeHandle(lastPos - firstPos),
      minPos(firstPos - ((styleBits & kHorizontal) ? viewSize.left : viewSize.top)),
      widthControl(viewSize.width()), heightControl(viewSize.height()) {
    CPedlDelaySlider::setOffsetHandle(CPoint(0, 0));
    setWantsFocus(true); // arrow keys
}

void CPedlDelaySlider::setHandle(CBitmap* bitmap) {
    handle = bitmap;
    setDirty();
    setOffsetHandle(offsetHandle); // its length counts there
}

void CPedlDelaySlider::setOverlay(CBitmap* bitmap) {
    overlay = bitmap;
    setDirty();
}

int32_t CPedlDelaySlider::takeWheelDirection() {
    return std::exchange(wheelDirection, 0);
}

// Places

double CPedlDelaySlider::along(const CPoint& point) const {
    return isHorizontal() ? point.x : point.y;
}

double CPedlDelaySlider::handleLength() const {
    if (handle == nullptr)
        return 0.0;
    return isHorizontal() ? handle->getWidth() : handle->getHeight();
}

void CPedlDelaySlider::setOffsetHandle(const CPoint& place) {
    offsetHandle = place;
    minTmp = along(offsetHandle) + minPos;
    maxTmp = minTmp + rangeHandle + handleLength();
}

double CPedlDelaySlider::firstPlace() const {
    return along(offsetHandle);
}

bool CPedlDelaySlider::isInverted() const {
    return (style & kInvertingBits) != 0;
}

/// Of the handle's start, from the view's edge.
double CPedlDelaySlider::handlePlace() const {
    const float scaled = std::min(1.0F, valueScale * value);
    const float place = isInverted() ? 1.0F - scaled : scaled;
    const double start =
        firstPlace() + static_cast<int32_t>(static_cast<double>(place) * rangeHandle);
    return std::clamp(start, minTmp, std::max(minTmp, maxTmp - handleLength()));
}

CRect CPedlDelaySlider::handleRect() const {
    const double place = handlePlace();
    const CPoint corner = size.getTopLeft() + (isHorizontal() ? CPoint(place, offsetHandle.y)
                                                              : CPoint(offsetHandle.x, place));
    return {corner, handle ? CPoint(handle->getWidth(), handle->getHeight()) : CPoint()};
}

void CPedlDelaySlider::draw(CDrawContext* context) {
    if (CBitmap* const background = getBackground())
        background->draw(context, size, offset);
    if (handle)
        handle->draw(context, handleRect());
    if (CBitmap* const above = shownOverlay())
        above->draw(context, size, offset);
    setDirty(false);
}

// Mouse

CMouseEventResult CPedlDelaySlider::goToDefault() {
    if (hasEdits())
        beginEdit();
    value = getDefaultValue();
    valueChanged();
    if (hasEdits())
        endEdit();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

CMouseEventResult CPedlDelaySlider::onMouseDown(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    jumped = false;
    if (buttons.isDoubleClick() || buttons() == (kLButton | kControl))
        return goToDefault();
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    active = true;
    if (freeClick || (buttons & kAlt)) {
        jumped = true;
        delta = handleLength() / 2 - 1; // its middle comes under the mouse
    } else {
        const CRect grip = handleRect();
        delta = along(where) - along(grip.getTopLeft());
        if (!grip.pointInside(where)) {
            active = false;
            return hasEdits() ? kMouseDownEventHandledButDontNeedMovedOrUpEvents
                              : kMouseEventNotHandled;
        }
    }
    oldVal = getMin() - 1.0F; // no fine part yet
    oldButton = buttons;
    if (hasEdits())
        beginEdit();
    return jumped ? onMouseMoved(where, buttons) : kMouseEventHandled;
}

CMouseEventResult CPedlDelaySlider::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (oldButton() == 0)
        return kMouseEventNotHandled;
    if (!buttons.isLeftButton())
        return kMouseEventHandled; // stays in the drag: its release is still to come
    const bool isFine = (buttons & kShift) != 0;
    if (oldVal == getMin() - 1.0F || buttons != oldButton) {
        oldVal = getValueNormalized();
        if (buttons != oldButton && isFine)
            oldButton = buttons;
    }
    const double origin = along(size.getTopLeft()) + firstPlace() + delta;
    auto to = rangeHandle > 0.0 ? static_cast<float>((along(where) - origin) / rangeHandle) : 0.0F;
    if (isInverted())
        to = 1.0F - to;
    to /= valueScale;
    if (isFine) {
        if (jumped)
            oldVal = to; // the jump itself is no fine step
        else
            to = (to - oldVal) / zoomFactor + oldVal;
    }
    jumped = false;
    moveTo(to);
    return kMouseEventHandled;
}

void CPedlDelaySlider::moveTo(float normalised) {
    const CBaseObjectGuard self(this);
    const float before = value;
    setValueNormalized(normalised);
    if (valueScale * value > 1.0F)
        value = 1.0F / valueScale;
    if (value == before && !isDirty())
        return;
    valueChanged();
    invalid();
}

void CPedlDelaySlider::moveInOneEdit(float normalised) {
    const CBaseObjectGuard self(this);
    const float before = value;
    setValueNormalized(normalised);
    if (value == before && !isDirty())
        return;
    if (hasEdits())
        beginEdit();
    valueChanged();
    if (hasEdits())
        endEdit();
}

CMouseEventResult CPedlDelaySlider::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    oldButton = 0;
    active = false;
    if (hasEdits())
        endEdit();
    return kMouseEventHandled;
}

// Wheel and keys

bool CPedlDelaySlider::stepsBackwards() const {
    constexpr int32_t kFromTop = kVertical | kTop;
    constexpr int32_t kFromRight = kHorizontal | kRight;
    return (style & kFromTop) == kFromTop || (style & kFromRight) == kFromRight;
}

bool CPedlDelaySlider::turnWheel(const CPoint& /*where*/, float distance,
                                 const CButtonState& buttons) {
    if (!getMouseEnabled())
        return false;
    const CBaseObjectGuard self(this);
    active = true;
    wheelDirection = distance >= 0.0F ? 1 : -1;
    float step = distance * kWheelStep;
    if (stepsBackwards())
        step = -step;
    if (buttons & kShift)
        step *= kFineStep;
    moveInOneEdit(getValueNormalized() + step * getWheelInc());
    active = false;
    wheelDirection = 0;
    return true;
}

float CPedlDelaySlider::valueAfterKey(bool isUpwards, bool isFine) const {
    const float step = getWheelInc() * (isFine ? kFineStep : 1.0F);
    return getValueNormalized() + (isUpwards != stepsBackwards() ? step : -step);
}

int32_t CPedlDelaySlider::onKeyDown(VstKeyCode& keyCode) {
    if (!isArrow(keyCode))
        return -1;
    const bool isUpwards = keyCode.virt == VKEY_UP || keyCode.virt == VKEY_RIGHT;
    const bool isFine = (mapVstKeyModifier(keyCode.modifier) & kShift) != 0;
    moveInOneEdit(valueAfterKey(isUpwards, isFine));
    return 1;
}

} // namespace pedl
