#include "controls/DigitCells.h"

#include "controls/FilmStrip.h"

namespace pedl {

using namespace VSTGUI;

void DigitCells::draw(CDrawContext* context, const CRect& view, int32_t fromLeft,
                      int32_t frame) const {
    if (strip == nullptr)
        return;
    const CRect cell(CPoint(left(view, fromLeft), view.top), CPoint(strip->getWidth(), height()));
    drawFrame(context, strip, cell, frame, height());
}

} // namespace pedl
