#include "vstgui/lib/controls/cswitch.h"

#include "vstgui/lib/controls/picturestrip.h"
#include "vstgui/lib/cvstguitimer.h"

#include <utility>

namespace VSTGUI {

namespace {

/// How long a rocker stays at its side after a turn of the wheel.
constexpr int32_t kRockerWheelMs = 200;

/// A normalised value; outside 0 to 1 for a point outside the strip.
float normalisedAt(CCoord along, CCoord length, int32_t positions) {
    if (positions < 2 || length <= 0)
        return 0.0F;
    const auto position = static_cast<int32_t>(along * positions / length);
    return static_cast<float>(position) / static_cast<float>(positions - 1);
}

/// Tells and shows a new value. One that is on the screen already is told all the same when it has
/// moved there: another may have been set in between, and whoever did so hears of it.
void tellChange(CControl& control, bool hasMoved) {
    if (!hasMoved && !control.isDirty())
        return;
    control.valueChanged();
    control.invalid();
}

/// One position on or back by a key, as an edit of its own.
int32_t stepByKey(CControl& control, int32_t positions, int32_t direction) {
    if (positions < 2)
        return -1;
    const int32_t position = nearestPosition(control, positions) + direction;
    if (position < 0 || position >= positions)
        return -1;
    const float before = control.getValue();
    control.setValueNormalized(static_cast<float>(position) / static_cast<float>(positions - 1));
    if (control.getValue() == before && !control.isDirty())
        return -1;
    control.invalid();
    control.beginEdit();
    control.valueChanged();
    control.endEdit();
    return 1;
}

} // namespace

CVerticalSwitch::CVerticalSwitch(const CRect& viewSize, CControlListener* controlListener,
                                 int32_t controlTag, int32_t pictures, CCoord pictureHeight,
                                 int32_t iMaxPositions, CBitmap* background,
                                 const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, background), offset(pictureOffset),
      positions_(iMaxPositions) {
    subPixmaps = pictures;
    heightOfOneImage = pictureHeight;
    defaultValue = 0.0F; // the first position, where other controls have the middle
    setWantsFocus(true);
}

CVerticalSwitch::CVerticalSwitch(const CVerticalSwitch& other) = default;

CVerticalSwitch::~CVerticalSwitch() = default;

void CVerticalSwitch::draw(CDrawContext* context) {
    const int32_t picture = nearestPosition(*this, subPixmaps);
    drawPicture(context, *this, offset + CPoint(0, heightOfOneImage * picture));
}

CMouseEventResult CVerticalSwitch::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    beginEdit();
    if (checkDefaultValue(buttons)) {
        endEdit();
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    return onMouseMoved(where, buttons);
}

CMouseEventResult CVerticalSwitch::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const float before = value;
    value = vmin + (vmax - vmin) * normalisedAt(where.y - size.top, getHeight(), positions_);
    bounceValue(); // a drag goes on outside the strip
    tellChange(*this, value != before);
    return kMouseEventHandled;
}

CMouseEventResult CVerticalSwitch::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    endEdit();
    return kMouseEventHandled;
}

int32_t CVerticalSwitch::onKeyDown(VstKeyCode& keyCode) {
    if (keyCode.modifier == 0 && keyCode.virt == VKEY_UP)
        return stepByKey(*this, positions_, -1);
    if (keyCode.modifier == 0 && keyCode.virt == VKEY_DOWN)
        return stepByKey(*this, positions_, 1);
    return -1;
}

bool CVerticalSwitch::sizeToFit() {
    return fitToPicture(*this, heightOfOneImage);
}

CHorizontalSwitch::CHorizontalSwitch(const CRect& viewSize, CControlListener* controlListener,
                                     int32_t controlTag, int32_t pictures, CCoord pictureHeight,
                                     int32_t iMaxPositions, CBitmap* background,
                                     const CPoint& pictureOffset)
    : CControl(viewSize, controlListener, controlTag, background), offset(pictureOffset),
      positions_(iMaxPositions) {
    subPixmaps = pictures;
    heightOfOneImage = pictureHeight;
    defaultValue = 0.0F;
    setWantsFocus(true);
}

CHorizontalSwitch::CHorizontalSwitch(const CHorizontalSwitch& other) = default;

CHorizontalSwitch::~CHorizontalSwitch() = default;

void CHorizontalSwitch::draw(CDrawContext* context) {
    const int32_t picture = nearestPosition(*this, subPixmaps);
    drawPicture(context, *this, offset + CPoint(0, heightOfOneImage * picture));
}

CMouseEventResult CHorizontalSwitch::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    beginEdit();
    if (checkDefaultValue(buttons)) {
        endEdit();
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    return onMouseMoved(where, buttons);
}

CMouseEventResult CHorizontalSwitch::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const float before = value;
    value = vmin + (vmax - vmin) * normalisedAt(where.x - size.left, getWidth(), positions_);
    bounceValue();
    tellChange(*this, value != before);
    return kMouseEventHandled;
}

CMouseEventResult CHorizontalSwitch::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    endEdit();
    return kMouseEventHandled;
}

int32_t CHorizontalSwitch::onKeyDown(VstKeyCode& keyCode) {
    if (keyCode.modifier == 0 && keyCode.virt == VKEY_LEFT)
        return stepByKey(*this, positions_, -1);
    if (keyCode.modifier == 0 && keyCode.virt == VKEY_RIGHT)
        return stepByKey(*this, positions_, 1);
    return -1;
}

bool CHorizontalSwitch::sizeToFit() {
    return fitToPicture(*this, heightOfOneImage);
}

CRockerSwitch::CRockerSwitch(const CRect& viewSize, CControlListener* controlListener,
                             int32_t controlTag, CCoord pictureHeight, CBitmap* background,
                             const CPoint& pictureOffset, const int32_t styleBits)
    : CControl(viewSize, controlListener, controlTag, background), offset(pictureOffset),
      style(styleBits) {
    heightOfOneImage = pictureHeight;
    subPixmaps = 3;
    vmin = -1.0F; // rest is 0, between the sides
    setWantsFocus(true);
}

CRockerSwitch::CRockerSwitch(const CRockerSwitch& rswitch)
    : CControl(rswitch), IMultiBitmapControl(rswitch), offset(rswitch.offset),
      style(rswitch.style) {}

CRockerSwitch::~CRockerSwitch() {
    if (resetValueTimer)
        resetValueTimer->forget();
}

void CRockerSwitch::draw(CDrawContext* context) {
    const int32_t picture = value == vmin ? 0 : value == vmax ? 2 : 1;
    drawPicture(context, *this, offset + CPoint(0, heightOfOneImage * picture));
}

float CRockerSwitch::middle() const {
    return vmin + (vmax - vmin) / 2;
}

/// The side that is pressed there; outside, the rest: a press can be taken back.
float CRockerSwitch::sideAt(const CPoint& where) const {
    if (!size.pointInside(where))
        return middle();
    const CPoint centre = size.getCenter();
    const bool isFirstHalf = (style & kHorizontal) ? where.x < centre.x : where.y < centre.y;
    return isFirstHalf ? vmin : vmax;
}

CMouseEventResult CRockerSwitch::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    beginEdit();
    return onMouseMoved(where, buttons);
}

CMouseEventResult CRockerSwitch::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const float before = std::exchange(value, sideAt(where));
    tellChange(*this, value != before);
    return kMouseEventHandled;
}

CMouseEventResult CRockerSwitch::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    const float before = std::exchange(value, middle());
    tellChange(*this, value != before);
    endEdit(); // a running timer stays: it belongs to the wheel
    return kMouseEventHandled;
}

bool CRockerSwitch::onWheel(const CPoint& /*where*/, const float& distance,
                            const CButtonState& /*buttons*/) {
    if (!getMouseEnabled())
        return false;
    if (resetValueTimer) // still at the side where the last notch put it
        return true;
    const bool isUp = distance > 0;
    const bool upIsLeast = (style & kHorizontal) == 0;
    const float before = std::exchange(value, isUp == upIsLeast ? vmin : vmax);
    beginEdit();
    tellChange(*this, value != before);
    if (!resetValueTimer)
        resetValueTimer = new CVSTGUITimer(this, kRockerWheelMs);
    resetValueTimer->start();
    return true;
}

int32_t CRockerSwitch::onKeyDown(VstKeyCode& keyCode) {
    if (keyCode.modifier != 0)
        return -1;
    float side = vmin;
    if (keyCode.virt == VKEY_RIGHT || keyCode.virt == VKEY_DOWN)
        side = vmax;
    else if (keyCode.virt != VKEY_LEFT && keyCode.virt != VKEY_UP)
        return -1;
    if (keyCode.virt == heldKey_) // it repeats; its edit is open
        return 1;
    const bool isFirst = heldKey_ == 0; // else the edit goes on with another arrow
    heldKey_ = keyCode.virt;
    const float before = std::exchange(value, side);
    if (isFirst)
        beginEdit();
    tellChange(*this, value != before);
    return 1;
}

/// Whatever the modifiers are by now.
int32_t CRockerSwitch::onKeyUp(VstKeyCode& keyCode) {
    if (heldKey_ == 0 || keyCode.virt != heldKey_)
        return -1;
    releaseKey();
    return 1;
}

void CRockerSwitch::looseFocus() {
    if (heldKey_ != 0)
        releaseKey();
}

void CRockerSwitch::releaseKey() {
    const CBaseObjectGuard self(this);
    heldKey_ = 0;
    const float before = std::exchange(value, middle());
    tellChange(*this, value != before);
    endEdit();
}

CMessageResult CRockerSwitch::notify(CBaseObject* sender, IdStringPtr message) {
    if (sender != resetValueTimer || message != CVSTGUITimer::kMsgTimer || !resetValueTimer)
        return CControl::notify(sender, message);
    const CBaseObjectGuard guard(this);      // the listener may take the rocker away
    const bool hasMoved = value != middle(); // a press may have ended at rest meanwhile
    value = middle();
    if (hasMoved) {
        valueChanged();
        invalid();
    }
    endEdit();
    if (resetValueTimer) {
        resetValueTimer->forget();
        resetValueTimer = nullptr;
    }
    return kMessageNotified;
}

} // namespace VSTGUI
