#pragma once

#include "controls/DragKnob.h"
#include "controls/ValueLabel.h"

namespace pedl {

/// A knob with its value written below: a strip of frames in `knobRect`, and under it a line of
/// `labelHeight` pixels by which the view is higher.
class CAnimKnobWithLabel : public ValueLabel<DragKnob> {
public:
    /// @param size  of the picture alone
    CAnimKnobWithLabel(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                       int32_t subPixmaps, int32_t bitmapWidth, int32_t heightOfOneImage,
                       VSTGUI::CBitmap* background, int32_t labelHeight,
                       const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    void draw(VSTGUI::CDrawContext* context) override;

    /// View and picture's place grow by `pixels` on the left and on the right.
    virtual void widenLabel(double pixels);
    void setLabelYOffset(double pixels) override;
    /// The label moves to the right, and the view grows there as much.
    virtual void setLabelXOffset(double pixels);
    void drawLabel(VSTGUI::CDrawContext* context, const char* text) override;

    VSTGUI::CRect knobRect;
    double labelXOffset = 0.0;
    CLASS_METHODS(CAnimKnobWithLabel, CAnimKnob)

protected:
    ~CAnimKnobWithLabel() override = default;
};

} // namespace pedl
