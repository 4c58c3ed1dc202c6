#include "controls/CZMTHitHintLabel2.h"

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr CColor kHintColour(255, 255, 255, 180);

} // namespace

CZMTHitHintLabel2::CZMTHitHintLabel2(const CRect& viewSize, CControlListener* controlListener,
                                     int32_t controlTag, const CRect& link, const char* txt,
                                     CBitmap* background, int32_t styleBits)
    : CTextLabel(viewSize, txt, background, styleBits), linkRect(link) {
    listener = controlListener;
    tag = controlTag;
    fontColor = kHintColour;
    if (fontID->getStyle() != kNormalFace)
        fontID->setStyle(kNormalFace);
}

void CZMTHitHintLabel2::show(const char* txt, const CColor& colour, int32_t fontStyle) {
    setFontColor(colour);
    if (fontID && fontID->getStyle() != fontStyle)
        fontID->setStyle(fontStyle);
    setText(txt);
}

void CZMTHitHintLabel2::showLinkHint(const char* txt, const CColor& colour) {
    show(txt, colour, kItalicFace);
    linkActive = true;
}

void CZMTHitHintLabel2::showPlainHint(const char* txt, const CColor& colour) {
    show(txt, colour, kNormalFace);
    linkActive = false;
}

CMouseEventResult CZMTHitHintLabel2::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton() || listener == nullptr)
        return kMouseEventNotHandled;
    if (buttons.isDoubleClick() && linkActive && linkRect.width() > 0 && where.x > linkRect.left &&
        where.x < linkRect.right) {
        const CBaseObjectGuard self(this);
        value = 1.0F;
        valueChanged();
    }
    return kMouseEventHandled;
}

} // namespace pedl
