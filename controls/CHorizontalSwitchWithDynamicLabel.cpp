#include "controls/CHorizontalSwitchWithDynamicLabel.h"

#include "controls/FilmStrip.h"
#include "controls/WheelNotch.h"

namespace pedl {

using namespace VSTGUI;

CHorizontalSwitchWithDynamicLabel::CHorizontalSwitchWithDynamicLabel(
    const CRect& viewSize, CControlListener* controlListener, int32_t controlTag, int32_t frames,
    CCoord frameHeight, int32_t /*iMaxPositions*/, CBitmap* background, const CPoint& pictureOffset)
    : ValueLabel(viewSize, controlListener, controlTag, background), offset(pictureOffset) {
    subPixmaps = frames;
    heightOfOneImage = frameHeight;
    defaultValue = 0.0F;
    labelFontColor = kWhiteCColor;
    labelBackColor = labelFrameColor = kBlackCColor;
    labelShadowColor = kRedCColor;
    setWantsFocus(true); // keys
}

void CHorizontalSwitchWithDynamicLabel::draw(CDrawContext* context) {
    const float position = vmax == vmin ? 0.0F : (value - vmin) / (vmax - vmin);
    drawFrame(context, getBackground(), size, frameOfValue(position, subPixmaps), heightOfOneImage);
    drawValue(context);
}

void CHorizontalSwitchWithDynamicLabel::drawLabel(CDrawContext* context, const char* text) {
    if (!hasLabelText(text))
        return;
    const CRect line = labelLine(size.left, size.top, size.right);
    context->setFont(labelFont);
    if (labelStyle & kShadowText)
        drawLine(context, text, CRect(line).offset(1, 1), labelShadowColor);
    drawLine(context, text, line, labelFontColor);
}

float CHorizontalSwitchWithDynamicLabel::valueAt(int32_t position) const {
    const auto last = static_cast<float>(subPixmaps - 1);
    return last > 0.0F ? vmin + (vmax - vmin) * static_cast<float>(position) / last : vmin;
}

void CHorizontalSwitchWithDynamicLabel::tellIfMoved(float before) {
    if (value == before && !isDirty())
        return;
    const CBaseObjectGuard self(this);
    valueChanged();
    invalid();
}

CMouseEventResult CHorizontalSwitchWithDynamicLabel::onMouseDown(CPoint& where,
                                                                 const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    const double stripWidth = getBackground() ? getBackground()->getWidth() : getWidth();
    stepWidth = subPixmaps > 0 ? (stripWidth - 2.0 * horizontalInset) / subPixmaps : 0.0;
    beginEdit();
    if (checkDefaultValue(buttons)) {
        endEdit();
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    valueChanged();
    return onMouseMoved(where, buttons);
}

CMouseEventResult CHorizontalSwitchWithDynamicLabel::onMouseMoved(CPoint& where,
                                                                  const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventHandled;
    const float before = value;
    const double along = where.x - (size.left + horizontalInset);
    value = valueAt(stepWidth > 0.0 ? static_cast<int32_t>(along / stepWidth) : 0);
    bounceValue(); // a drag goes on outside the strip
    tellIfMoved(before);
    return kMouseEventHandled;
}

CMouseEventResult CHorizontalSwitchWithDynamicLabel::onMouseUp(CPoint& /*where*/,
                                                               const CButtonState& /*buttons*/) {
    endEdit();
    return kMouseEventHandled;
}

bool CHorizontalSwitchWithDynamicLabel::turnWheel(const CPoint& /*where*/, float distance,
                                                  const CButtonState& /*buttons*/) {
    const float before = value;
    const float step = subPixmaps > 1 ? 1.0F / static_cast<float>(subPixmaps - 1) : 0.0F;
    if (distance > kSmallestNotch)
        value += step;
    else if (distance < -kSmallestNotch)
        value -= step;
    bounceValue();
    tellIfMoved(before);
    return true;
}

int32_t CHorizontalSwitchWithDynamicLabel::onKeyDown(VstKeyCode& keyCode) {
    const int32_t step = keyCode.virt == VKEY_LEFT ? -1 : keyCode.virt == VKEY_RIGHT ? 1 : 0;
    if (keyCode.modifier != 0 || step == 0)
        return -1;
    const int32_t position =
        static_cast<int32_t>(static_cast<float>(subPixmaps - 1) * getValueNormalized() + 0.5F) +
        step;
    if (position < 0 || position >= subPixmaps)
        return -1;
    const float before = value;
    value = valueAt(position);
    if (value == before && !isDirty())
        return -1;
    const CBaseObjectGuard self(this);
    invalid();
    beginEdit();
    valueChanged();
    endEdit();
    return 1;
}

bool CHorizontalSwitchWithDynamicLabel::sizeToFit() {
    const CBitmap* const strip = getBackground();
    if (strip == nullptr)
        return false;
    const CRect fitting(size.getTopLeft(), CPoint(strip->getWidth(), heightOfOneImage));
    setViewSize(fitting, true);
    setMouseableArea(fitting);
    return true;
}

void CHorizontalSwitchWithDynamicLabel::setHorizontalInset(double pixels) {
    horizontalInset = pixels > 0.0 && 2.0 * pixels < getWidth() ? pixels : 0.0;
}

void CHorizontalSwitchWithDynamicLabel::setLabelYOffset(double pixels) {
    labelYOffset = pixels < 0.0 ? 0.0 : pixels;
}

} // namespace pedl
