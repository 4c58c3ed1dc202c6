#include "controls/CZMTParamDisplay.h"

#include <cstdio>

namespace pedl {

using namespace VSTGUI;

CZMTParamDisplay::CZMTParamDisplay(const CRect& viewSize, const CColor& color, CBitmap* background,
                                   int32_t styleBits)
    : CParamDisplay(viewSize, background, styleBits) {
    size.offset(1, 1);
    mouseableArea = size;
    CParamDisplay::setFont(kNormalFontSmall);
    horiTxtAlign = kCenterText;
    fontColor = color;
}

void CZMTParamDisplay::setTaggedValueToStringProc(ValueToTextProcWithData proc, void* userData) {
    taggedValueToStringProc = proc;
    valueToStringUserData = userData;
}

void CZMTParamDisplay::draw(CDrawContext* context) {
    if (style & kNoDrawStyle)
        return; // stays dirty
    char text[kValueTextBytes] = {};
    if (tag >= 0 && taggedValueToStringProc)
        taggedValueToStringProc(value, text, valueToStringUserData, tag);
    else if (!valueToString || !valueToString(value, text, valueToStringUserData))
        std::snprintf(text, sizeof text, "%2.2f", static_cast<double>(value));
    drawBack(context);
    drawText(context, text);
    setDirty(false);
}

void CZMTParamDisplay::setValue(float val) {
    CParamDisplay::setValue(val);
    invalid();
}

} // namespace pedl
