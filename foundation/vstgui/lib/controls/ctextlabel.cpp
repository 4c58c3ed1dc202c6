#include "vstgui/lib/controls/ctextlabel.h"

#include <cmath>
#include <cstring>

#include "vstgui/lib/coffscreencontext.h"

namespace VSTGUI {

CTextLabel::CTextLabel(const CRect& viewSize, UTF8StringPtr txt, CBitmap* background,
                       const int32_t styleBits)
    : CParamDisplay(viewSize, background, styleBits) {
    CTextLabel::setText(txt);
}

CTextLabel::CTextLabel(const CTextLabel& label) : CParamDisplay(label) {
    CTextLabel::setText(label.getText());
}

CTextLabel::~CTextLabel() {
    freeText();
}

void CTextLabel::freeText() {
    delete[] text;
    text = nullptr;
}

void CTextLabel::setText(UTF8StringPtr txt) {
    if (!txt)
        txt = "";
    if (text && std::strcmp(text, txt) == 0)
        return; // labels are set again and again from idle: no drawing for nothing
    const std::size_t bytes = std::strlen(txt) + 1;
    auto* copy = new char[bytes]; // before the old one goes: `txt` may be a part of it
    std::memcpy(copy, txt, bytes);
    freeText();
    text = copy;
    setDirty();
}

void CTextLabel::draw(CDrawContext* context) {
    drawBack(context);
    drawText(context, text);
    setDirty(false);
}

bool CTextLabel::sizeToFit() {
    // Only a context measures, and only a frame with a window makes one.
    COffscreenContext* measure = COffscreenContext::create(getFrame(), 1, 1);
    if (!measure)
        return false;
    measure->setFont(fontID);
    CRect fitting = size;
    fitting.setWidth(std::ceil(measure->getStringWidth(text)) + 2 * textInset.x);
    measure->forget();
    setViewSize(fitting, true);
    setMouseableArea(fitting);
    return true;
}

} // namespace VSTGUI
