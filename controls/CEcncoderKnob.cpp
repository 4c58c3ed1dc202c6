#include "controls/CEcncoderKnob.h"

#include "controls/FilmStrip.h"
#include "controls/WheelNotch.h"

#include <algorithm>
#include <cmath>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kUsualSensitivity = 0.01F;
constexpr float kHundredth = 0.01F;     // a drag is measured in hundreds of pixels
constexpr float kDragGrowth = 1000.0F;  // for a hundred pixels beyond the dead band
constexpr float kWheelGrowth = 100.0F;  // for fifty tenths of a notch
constexpr float kWheelExponent = 0.02F; // a tenth of a notch

} // namespace

CEcncoderKnob::CEcncoderKnob(const CRect& viewSize, CControlListener* controlListener,
                             int32_t controlTag, int32_t frames, int32_t stripWidth,
                             int32_t frameHeight, CBitmap* background, const CPoint& pictureOffset)
    : BalancedEdits(viewSize, controlListener, controlTag, frames, static_cast<CCoord>(frameHeight),
                    background, pictureOffset),
      bitmapHeight(background ? static_cast<int32_t>(background->getHeight()) : 0),
      bitmapWidth(stripWidth) {
    frameCount = frameHeight > 0 ? bitmapHeight / frameHeight : 0;
}

void CEcncoderKnob::draw(CDrawContext* context) {
    drawFrame(context, getBackground(), size, frameOfValue(position, subPixmaps), heightOfOneImage);
    setDirty(false);
}

void CEcncoderKnob::wrapPosition() {
    if (position > 1.0F)
        position = 0.0F;
    else if (position < 0.0F)
        position = 1.0F;
}

void CEcncoderKnob::setSensitivity(float scale) {
    sensitivity = scale > 0.0F ? scale : kUsualSensitivity;
}

void CEcncoderKnob::moveValue(float by) {
    value = std::clamp(value + by, 0.0F, 1.0F);
}

CMouseEventResult CEcncoderKnob::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton() || listener == nullptr)
        return kMouseEventNotHandled;
    lastPoint = where;
    return kMouseEventHandled;
}

CMouseEventResult CEcncoderKnob::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    return kMouseEventHandled;
}

CMouseEventResult CEcncoderKnob::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventHandled;
    const CBaseObjectGuard self(this);
    beginEdit();
    const float delta =
        static_cast<float>((lastPoint.y - where.y) + (where.x - lastPoint.x)) * kHundredth;
    if (std::fabs(delta) < step) {
        leaveEditOpen();
        return kMouseEventHandled;
    }
    const float quantised = std::clamp(delta - std::fmod(delta, step), -1.0F, 1.0F);
    const float sign = quantised < 0.0F ? -1.0F : 1.0F;
    moveValue(std::pow(kDragGrowth, std::fabs(quantised) - step) * sensitivity * sign);
    lastPoint = where;
    position += quantised;
    wrapPosition();
    if (listener != nullptr) {
        invalid();
        valueChanged();
    }
    endEdit();
    return kMouseEventHandled;
}

bool CEcncoderKnob::turnWheel(const CPoint& /*where*/, float distance,
                              const CButtonState& /*buttons*/) {
    position += oneNotch(distance) * step;
    const auto tenths = static_cast<int32_t>(distance * 10.0F);
    const float exponent = static_cast<float>(std::abs(tenths) - 1) * kWheelExponent;
    moveValue(std::pow(kWheelGrowth, exponent) * sensitivity * (tenths < 0 ? -1.0F : 1.0F));
    wrapPosition();
    bounceValue();
    if (listener == nullptr)
        return true;
    const CBaseObjectGuard self(this);
    invalid();
    beginEdit();
    valueChanged();
    endEdit();
    return true;
}

} // namespace pedl
