#pragma once

#include "controls/BalancedEdits.h"
#include "vstgui/lib/controls/cswitch.h"

namespace pedl {

/// A rocker of the preset bar: five frames, idle, left and right under the mouse, left and right
/// pressed. A press or a notch of the wheel tells -1 or 1; the timer takes it back to 0, and while
/// it runs the wheel does nothing.
class CZMRockerSwitch : public BalancedEdits<VSTGUI::CRockerSwitch> {
public:
    CZMRockerSwitch(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                    int32_t heightOfOneImage, VSTGUI::CBitmap* background,
                    const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0),
                    int32_t style = VSTGUI::kHorizontal);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& where,
                                             const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& where,
                                            const VSTGUI::CButtonState& buttons) override;

    int32_t hoverSide = 0; // -1 left, 1 right, 0 none
    CLASS_METHODS(CZMRockerSwitch, CRockerSwitch)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CZMRockerSwitch() override = default;

private:
    void tellAndReset(int32_t afterMs);
};

} // namespace pedl
