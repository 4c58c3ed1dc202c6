#pragma once

#include "controls/DigitDisplay.h"

namespace pedl {

/// The rate of a synchronised LFO as a fraction of a whole note, "3/16", on five cells of a segment
/// display: one of the 32 of `parameters/NoteDivision.h`, the value being index / 31. A drag of 10
/// pixels or a notch of the wheel moves it by one.
///
/// The index is cut, not rounded, so a value a little below a step shows the one before.
class CpedlLFOsyncDisplay : public DigitDisplay {
public:
    CpedlLFOsyncDisplay(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                        float cellSpacing, VSTGUI::CBitmap* digitStrip,
                        VSTGUI::CBitmap* overlayBitmap, VSTGUI::CBitmap* background);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;

    bool showSlash = true;
    CLASS_METHODS(CpedlLFOsyncDisplay, CControl)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CpedlLFOsyncDisplay() override = default;

private:
    [[nodiscard]] int32_t index() const;
    void step(int32_t by);
};

} // namespace pedl
