#include "vstgui/lib/controls/cparamdisplay.h"

#include <cstdio>

#include "vstgui/lib/cbitmap.h"

namespace VSTGUI {

CParamDisplay::CParamDisplay(const CRect& viewSize, CBitmap* background, const int32_t styleBits)
    : CControl(viewSize, nullptr, -1, background), horiTxtAlign(kCenterText), style(styleBits),
      fontID(kNormalFont), fontColor(kWhiteCColor), backColor(kBlackCColor),
      frameColor(kBlackCColor), shadowColor(kRedCColor), bAntialias(true) {
    fontID->remember();
}

CParamDisplay::CParamDisplay(const CParamDisplay& paramDisplay)
    : CControl(paramDisplay), valueToString(paramDisplay.valueToString),
      valueToStringUserData(paramDisplay.valueToStringUserData),
      horiTxtAlign(paramDisplay.horiTxtAlign), style(paramDisplay.style),
      fontID(paramDisplay.fontID), fontColor(paramDisplay.fontColor),
      backColor(paramDisplay.backColor), frameColor(paramDisplay.frameColor),
      shadowColor(paramDisplay.shadowColor), textInset(paramDisplay.textInset),
      bAntialias(paramDisplay.bAntialias) {
    if (fontID)
        fontID->remember();
}

CParamDisplay::~CParamDisplay() {
    if (fontID)
        fontID->forget();
}

void CParamDisplay::setFont(CFontRef font) {
    if (font)
        font->remember(); // first: it may be the one that is given back
    if (fontID)
        fontID->forget();
    fontID = font;
    setDirty(); // also for the same one: its size or style may have changed
}

void CParamDisplay::setFontColor(CColor color) {
    if (fontColor != color)
        setDirty();
    fontColor = color;
}

void CParamDisplay::setBackColor(CColor color) {
    if (backColor != color)
        setDirty();
    backColor = color;
}

void CParamDisplay::setFrameColor(CColor color) {
    if (frameColor != color)
        setDirty();
    frameColor = color;
}

void CParamDisplay::setShadowColor(CColor color) {
    if (shadowColor != color)
        setDirty();
    shadowColor = color;
}

void CParamDisplay::setAntialias(bool state) {
    if (bAntialias != state)
        setDirty();
    bAntialias = state;
}

void CParamDisplay::setHoriAlign(CHoriTxtAlign align) {
    if (horiTxtAlign != align)
        setDirty();
    horiTxtAlign = align;
}

void CParamDisplay::setTextInset(const CPoint& p) {
    if (textInset != p)
        setDirty();
    textInset = p;
}

void CParamDisplay::setValueToStringProc(CParamDisplayValueToStringProc proc, void* userData) {
    if (valueToString != proc || valueToStringUserData != userData)
        setDirty();
    valueToString = proc;
    valueToStringUserData = userData;
}

void CParamDisplay::setStyle(int32_t val) {
    if (style != val)
        setDirty();
    style = val;
}

void CParamDisplay::draw(CDrawContext* context) {
    if (style & kNoDrawStyle)
        return; // stays dirty
    char text[256] = {};
    // A converter that does not know the value leaves it to the plain number.
    const bool isConverted = valueToString && valueToString(value, text, valueToStringUserData);
    if (!isConverted)
        std::snprintf(text, sizeof text, "%2.2f", static_cast<double>(value));
    drawBack(context);
    drawText(context, text);
    setDirty(false);
}

void CParamDisplay::drawBack(CDrawContext* context, CBitmap* newBack) {
    if (CBitmap* bitmap = newBack ? newBack : getBackground()) {
        bitmap->draw(context, size, backOffset);
        return;
    }
    if (getTransparency())
        return;
    context->setFillColor(backColor);
    context->drawRect(size, kDrawFilled);
    if (style & (k3DIn | k3DOut | kNoFrame))
        return; // relief is not drawn, but has no frame either
    context->setLineWidth(1);
    context->setFrameColor(frameColor);
    context->drawRect(size, kDrawStroked);
}

void CParamDisplay::drawText(CDrawContext* context, UTF8StringPtr text) {
    if ((style & kNoTextStyle) || !text || !*text)
        return;
    CRect area = size;
    area.inset(textInset.x, textInset.y);
    context->setFont(fontID);
    if (style & kShadowText) {
        CRect shadow = area;
        shadow.offset(1, 1);
        context->setFontColor(shadowColor);
        context->drawString(text, shadow, horiTxtAlign, bAntialias);
    }
    context->setFontColor(fontColor);
    context->drawString(text, area, horiTxtAlign, bAntialias);
}

} // namespace VSTGUI
