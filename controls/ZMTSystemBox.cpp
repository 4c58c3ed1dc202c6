#include "controls/ZMTSystemBox.h"

namespace pedl {

using namespace VSTGUI;

ZMTSystemBox::ZMTSystemBox(BufferedFrame& frame, IPlatformTextEditCallback* control,
                           const SystemBoxLook& look)
    : FrameTextEdit(frame, control), look_(look),
      font_(new CFontDesc(look.forceArial ? "Arial" : control->platformGetFont()->getName(),
                          control->platformGetFont()->getSize(), kNormalFace)) {}

ZMTSystemBox::~ZMTSystemBox() {
    font_->forget();
}

CRect ZMTSystemBox::fieldArea() const {
    CRect area = callback()->platformGetSize();
    const auto middle = static_cast<int32_t>((area.top + area.bottom) / 2);
    const auto fontHeight = static_cast<int32_t>(font_->getSize());
    const int32_t half = fontHeight / 2;
    area.top = middle - fontHeight + (half - 1);
    area.bottom = middle + half + 2;
    return area.offset(look_.offset.x, look_.offset.y);
}

CColor ZMTSystemBox::textColor() const {
    return look_.fontColour.value_or(FrameTextEdit::textColor());
}

} // namespace pedl
