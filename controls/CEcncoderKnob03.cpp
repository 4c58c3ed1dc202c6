#include "controls/CEcncoderKnob03.h"

#include <algorithm>
#include <cmath>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kTurnOfOne = 0.01F; // of the picture, for an increment of 1
constexpr double kSlowPixels = 4.0; // a move of so many pixels still counts as 1
constexpr double kSteepExponent = 1.8;
constexpr double kGentleExponent = 1.4142;
constexpr float kWheelScale = 25.0F; // with a step of 0.04 a notch is 1

} // namespace

CEcncoderKnob03::CEcncoderKnob03(const CRect& viewSize, CControlListener* controlListener,
                                 int32_t controlTag, int32_t frames, int32_t stripWidth,
                                 int32_t frameHeight, CBitmap* background,
                                 const CPoint& pictureOffset)
    : CEcncoderKnob(viewSize, controlListener, controlTag, frames, stripWidth, frameHeight,
                    background, pictureOffset) {}

CMouseEventResult CEcncoderKnob03::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton()) {
        buttonHeld = false;
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    fromWheel = fineUsed = false;
    value = 0.0F;
    rawDelta = 0.0F;
    prevPoint = where;
    lastDirection = 1.0F;
    buttonHeld = true;
    altHeld = (buttons & kAlt) != 0;
    return CEcncoderKnob::onMouseDown(where, buttons);
}

CMouseEventResult CEcncoderKnob03::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    fromWheel = false;
    altHeld = (buttons & kAlt) != 0;
    if (!buttons.isLeftButton()) {
        buttonHeld = false;
        return kMouseEventHandled;
    }
    const CBaseObjectGuard self(this);
    const double moved = (where.y - prevPoint.y) + (prevPoint.x - where.x);
    const float direction = moved < 0.0 ? -1.0F : 1.0F; // up and right are negative here
    if (direction != lastDirection)
        lastPoint = where;
    prevPoint = where;
    lastDirection = direction;
    const double way = std::fabs(moved);
    const double fast = way >= kSlowPixels + 1.0 ? way - kSlowPixels : 1.0;
    const double exponent = gentleCurve ? kGentleExponent : kSteepExponent;
    const auto turned =
        static_cast<float>(std::pow(fast, exponent) / fast * static_cast<double>(direction));
    rawDelta = value = -turned;
    fineUsed = (buttons & kShift) != 0;
    value *= fineUsed ? fineFactor : coarseFactor;
    lastPoint = where;
    position -= turned * kTurnOfOne;
    wrapPosition();
    if (listener != nullptr) {
        invalid();
        valueChanged();
    }
    fineUsed = false;
    return kMouseEventHandled;
}

CMouseEventResult CEcncoderKnob03::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    fromWheel = fineUsed = buttonHeld = altHeld = false;
    return kMouseEventHandled;
}

bool CEcncoderKnob03::turnWheel(const CPoint& /*where*/, float distance,
                                const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    const float way = std::fabs(distance);
    altHeld = (buttons & kAlt) != 0;
    position += std::max(1.0F, way) * (distance > 0.0F ? 1.0F : -1.0F) * kTurnOfOne;
    const auto notches = static_cast<float>(std::max(1, static_cast<int32_t>(way + 0.5F)));
    rawDelta = value = distance < 0.0F ? -notches * notches : notches * notches;
    if (buttons & kShift) {
        fineUsed = true;
        value *= fineFactor; // besides the coarse one, other than in a drag
    }
    value = coarseFactor * kWheelScale * value * step;
    wrapPosition();
    fromWheel = true;
    if (listener != nullptr)
        valueChanged();
    invalid();
    fromWheel = fineUsed = altHeld = false;
    return true;
}

} // namespace pedl
