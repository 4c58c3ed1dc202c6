#pragma once

#include "controls/BalancedEdits.h"
#include "controls/DigitCells.h"

namespace pedl {

/// The rate of a synchronised LFO as a fraction of a whole note, "3/16", on five cells of a segment
/// display: one of the 32 of `parameters/NoteDivision.h`, the value being index / 31. A drag of 10
/// pixels or a notch of the wheel moves it by one.
///
/// The index is cut, not rounded, so a value a little below a step shows the one before.
class CpedlLFOsyncDisplay : public BalancedEdits<VSTGUI::CControl> {
public:
    CpedlLFOsyncDisplay(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                        float cellSpacing, VSTGUI::CBitmap* digitStrip,
                        VSTGUI::CBitmap* overlayBitmap, VSTGUI::CBitmap* background);
    CpedlLFOsyncDisplay(const CpedlLFOsyncDisplay& other);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    using CControl::onWheel;
    bool onWheel(const VSTGUI::CPoint& where, const float& distance,
                 const VSTGUI::CButtonState& buttons) override;

    float cellSpacing;
    VSTGUI::CBitmap* digitStrip;
    VSTGUI::CBitmap* overlayBitmap;
    bool blanked = false; // the slash alone
    bool showSlash = true;
    VSTGUI::CPoint lastPoint;
    float lastSentValue = -1.0F;
    CLASS_METHODS(CpedlLFOsyncDisplay, CControl)

protected:
    ~CpedlLFOsyncDisplay() override;

private:
    [[nodiscard]] int32_t index() const;
    void step(int32_t by);
};

} // namespace pedl
