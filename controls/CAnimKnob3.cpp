#include "controls/CAnimKnob3.h"

#include "controls/FilmStrip.h"

namespace pedl {

using namespace VSTGUI;

CAnimKnob3::CAnimKnob3(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
                       int32_t frames, int32_t stripWidth, int32_t frameHeight, CBitmap* background,
                       const CPoint& pictureOffset)
    : DragKnob(viewSize, controlListener, controlTag, frames, stripWidth, frameHeight, background,
               pictureOffset) {}

void CAnimKnob3::draw(CDrawContext* context) {
    drawFrame(context, getBackground(), size, frameOfValue(value, subPixmaps), heightOfOneImage);
    setDirty(false);
}

} // namespace pedl
