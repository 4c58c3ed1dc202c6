#pragma once

#include "controls/DragKnob.h"

namespace pedl {

/// A knob without a label: a strip of frames over the whole view.
class CAnimKnob3 : public DragKnob {
public:
    CAnimKnob3(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
               int32_t subPixmaps, int32_t bitmapWidth, int32_t heightOfOneImage,
               VSTGUI::CBitmap* background, const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    void draw(VSTGUI::CDrawContext* context) override;
    CLASS_METHODS(CAnimKnob3, CAnimKnob)

protected:
    ~CAnimKnob3() override = default;
};

} // namespace pedl
