#include "vstgui/lib/controls/cknob.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/picturestrip.h"

namespace VSTGUI {

namespace {

/// Direction of the least value, counted from the right, against the clock: lower left.
constexpr double kStartAngle = 1.25 * std::numbers::pi;
/// The way from the least to the greatest value, with the clock; a quarter is left below.
constexpr double kTurn = 1.5 * std::numbers::pi;
/// The handle's circle lies this far inside the view.
constexpr double kHandleInsetPixels = 3.0;
/// A linear drag of this length goes through the whole range.
constexpr double kLinearRangePixels = 200.0;
/// Step of a key or of the wheel with Shift, against one without.
constexpr float kFineStep = 0.1F;

} // namespace

CKnob::CKnob(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
             CBitmap* background, CBitmap* handle, const CPoint& pictureOffset,
             int32_t /*drawStyle*/)
    : CControl(viewSize, controlListener, controlTag, background), offset(pictureOffset),
      pHandle(handle) {
    if (pHandle)
        pHandle->remember();
    setWantsFocus(true);
}

CKnob::CKnob(const CKnob& knob)
    : CControl(knob), offset(knob.offset), pHandle(knob.pHandle), zoomFactor(knob.zoomFactor) {
    if (pHandle)
        pHandle->remember();
}

CKnob::~CKnob() {
    if (pHandle)
        pHandle->forget();
}

void CKnob::draw(CDrawContext* context) {
    if (CBitmap* background = getBackground())
        background->draw(context, size, offset);
    const CPoint centre = size.getCenter();
    const double angle = kStartAngle - kTurn * static_cast<double>(getValueNormalized());
    CPoint tip = centre + CPoint(std::cos(angle) * (getWidth() / 2 - kHandleInsetPixels),
                                 -std::sin(angle) * (getHeight() / 2 - kHandleInsetPixels));
    if (pHandle) {
        const CPoint handleSize(pHandle->getWidth(), pHandle->getHeight());
        tip -= CPoint(handleSize.x / 2, handleSize.y / 2);
        tip.makeIntegral();
        pHandle->draw(context, CRect(tip, handleSize));
    } else {
        context->setFrameColor(kWhiteCColor);
        context->setLineWidth(1);
        context->moveTo(centre);
        context->lineTo(tip);
    }
    setDirty(false);
}

/// One step is an edit of its own. At the end of the range nothing moves, yet a value that somebody
/// else has set and that is not on the screen yet is told: the user has confirmed it.
bool CKnob::stepBy(float steps, bool fine) {
    const float before = value;
    value += steps * wheelInc * (fine ? kFineStep : 1.0F);
    bounceValue();
    if (value == before && !isDirty())
        return false;
    beginEdit();
    valueChanged();
    endEdit();
    invalid();
    return true;
}

bool CKnob::onWheel(const CPoint& /*where*/, const float& distance, const CButtonState& buttons) {
    if (!getMouseEnabled())
        return false;
    stepBy(distance, (buttons & kZoomModifier) != 0);
    return true; // at the end too: what lies below must not move instead
}

int32_t CKnob::onKeyDown(VstKeyCode& keyCode) {
    const bool fine = (mapVstKeyModifier(keyCode.modifier) & kZoomModifier) != 0;
    switch (keyCode.virt) {
    case VKEY_UP:
    case VKEY_RIGHT:
        stepBy(1.0F, fine);
        return 1;
    case VKEY_DOWN:
    case VKEY_LEFT:
        stepBy(-1.0F, fine);
        return 1;
    default:
        return -1;
    }
}

CMouseEventResult CKnob::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    beginEdit();
    if (checkDefaultValue(buttons)) { // an edit within the edit
        endEdit();
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    const int32_t mode = getFrame() ? getFrame()->getKnobMode() : int32_t{kCircularMode};
    // Alt turns a circle into a line and back.
    const bool otherWay = (buttons & kAlt) != 0;
    linear_ = (mode == kLinearMode) != otherWay;
    relative_ = mode == kRelativCircularMode;
    fine_ = (buttons & kZoomModifier) != 0;
    startFrom(where);
    return onMouseMoved(where, buttons); // a circle is entered where the press is
}

void CKnob::startFrom(const CPoint& where) {
    firstPoint_ = where;
    startValue_ = value;
    startAngleValue_ = valueAtAngle(where);
}

CMouseEventResult CKnob::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const bool fine = (buttons & kZoomModifier) != 0;
    if (fine != fine_) { // goes on from here, without a jump
        fine_ = fine;
        startFrom(where);
    }
    const float before = value;
    value = linear_ ? valueOnLine(where) : valueOnCircle(where);
    bounceValue();
    if (value != before)
        valueChanged();
    if (isDirty()) // asked before: `invalid` makes it clean
        invalid();
    return kMouseEventHandled;
}

CMouseEventResult CKnob::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    endEdit();
    return kMouseEventHandled;
}

float CKnob::valueOnLine(const CPoint& where) const {
    const double range = kLinearRangePixels * (fine_ ? static_cast<double>(zoomFactor) : 1.0);
    const double moved = (where.x - firstPoint_.x) + (firstPoint_.y - where.y);
    return startValue_ + static_cast<float>(moved / range) * (vmax - vmin);
}

float CKnob::valueOnCircle(const CPoint& where) const {
    const float atAngle = valueAtAngle(where);
    if (fine_ || relative_) {
        const float turned = atAngle - startAngleValue_;
        return startValue_ + (fine_ ? turned / zoomFactor : turned);
    }
    // A drag across the gap at the bottom stays at the end where it arrived.
    const bool isDrag = where != firstPoint_;
    if (isDrag && std::abs(atAngle - value) > (vmax - vmin) / 2)
        return value > (vmin + vmax) / 2 ? vmax : vmin;
    return atAngle;
}

/// In the gap below, the nearer end.
float CKnob::valueAtAngle(const CPoint& where) const {
    const CPoint fromCentre = where - size.getCenter();
    const double angle = std::atan2(-fromCentre.y, fromCentre.x);
    double turned = kStartAngle - angle;
    if (turned >= 2 * std::numbers::pi)
        turned -= 2 * std::numbers::pi;
    const double middleOfGap = kTurn + (2 * std::numbers::pi - kTurn) / 2;
    if (turned > middleOfGap)
        turned = 0.0;
    const double fraction = std::min(turned / kTurn, 1.0);
    return vmin + static_cast<float>(fraction) * (vmax - vmin);
}

CAnimKnob::CAnimKnob(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
                     int32_t pictures, CCoord pictureHeight, CBitmap* background,
                     const CPoint& pictureOffset)
    : CKnob(viewSize, controlListener, controlTag, background, nullptr, pictureOffset) {
    subPixmaps = pictures;
    CAnimKnob::setHeightOfOneImage(pictureHeight);
}

CAnimKnob::CAnimKnob(const CAnimKnob& knob) = default;

CAnimKnob::~CAnimKnob() = default;

void CAnimKnob::draw(CDrawContext* context) {
    const float position = getValueNormalized() * static_cast<float>(subPixmaps - 1);
    // Not rounded, unlike switches: the last picture is that of the greatest value alone.
    const auto picture = static_cast<int32_t>(std::max(position, 0.0F));
    drawPicture(context, *this, offset + CPoint(0, heightOfOneImage * picture));
}

bool CAnimKnob::sizeToFit() {
    return fitToPicture(*this, heightOfOneImage);
}

void CAnimKnob::setHeightOfOneImage(const CCoord& height) {
    IMultiBitmapControl::setHeightOfOneImage(height);
    // The strip knows better than who made the knob: a given count holds until here.
    if (getBackground() && height > 0)
        subPixmaps = static_cast<int32_t>(getBackground()->getHeight() / height);
}

void CAnimKnob::setNumSubPixmaps(int32_t n) {
    IMultiBitmapControl::setNumSubPixmaps(n);
    invalid();
}

} // namespace VSTGUI
