#include "controls/CAnimKnobWithLabel.h"

#include "controls/FilmStrip.h"

namespace pedl {

using namespace VSTGUI;

namespace {

CRect withLine(CRect size, int32_t lineHeight) {
    size.bottom += lineHeight;
    return size;
}

} // namespace

CAnimKnobWithLabel::CAnimKnobWithLabel(const CRect& pictureSize, CControlListener* controlListener,
                                       int32_t controlTag, int32_t frames, int32_t stripWidth,
                                       int32_t frameHeight, CBitmap* background,
                                       int32_t labelHeight, const CPoint& pictureOffset)
    : ValueLabel(withLine(pictureSize, labelHeight), controlListener, controlTag, frames,
                 stripWidth, frameHeight, background, pictureOffset),
      knobRect(pictureSize) {
    labelYOffset = pictureSize.bottom - pictureSize.top;
}

void CAnimKnobWithLabel::draw(CDrawContext* context) {
    drawFrame(context, getBackground(), knobRect, frameOfValue(value, subPixmaps),
              heightOfOneImage);
    drawValue(context);
}

void CAnimKnobWithLabel::drawLabel(CDrawContext* context, const char* text) {
    if (!hasLabelText(text))
        return;
    const double shift = labelXOffset + 1.0;
    context->setFont(labelFont);
    drawLine(context, text, labelLine(knobRect.left + shift, knobRect.top, knobRect.right + shift),
             labelFontColor);
}

void CAnimKnobWithLabel::widenLabel(double pixels) {
    CRect wider = size;
    wider.left -= pixels;
    wider.right += pixels;
    setViewSize(wider, true);
    knobRect.left -= pixels;
    knobRect.right += pixels;
}

void CAnimKnobWithLabel::setLabelYOffset(double pixels) {
    labelYOffset = pixels >= 0.0 && pixels <= getHeight() ? pixels : 0.0;
}

void CAnimKnobWithLabel::setLabelXOffset(double pixels) {
    labelXOffset = pixels;
    CRect wider = size;
    wider.right += pixels;
    setViewSize(wider, true);
}

} // namespace pedl
