#pragma once

#include "controls/BalancedEdits.h"
#include "controls/Hovering.h"

namespace pedl {

/// A key that is pushed about: its value rests at 0.5, and each event sends a value whose distance
/// from 0.5 is the change asked for; to the right or upwards is below. Control or a double click
/// sends `kReset`. Four frames: idle, under the mouse, active, active under the mouse.
///
/// The owner sets the public fields. Thread: the editor's.
class RelativeMix : public Hovering<BalancedEdits<VSTGUI::CControl>> {
public:
    static constexpr float kRest = 0.5F;
    static constexpr float kReset = -1000.0F;

    RelativeMix(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                VSTGUI::CBitmap* background);

    void setActive(bool state);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    /// As it is: `kReset` lies outside the range.
    void setValue(float val) override { value = val; }

    float wheelStep = 1.0F / 48.0F;
    float wheelFineScale = 0.25F; // with Shift
    float entryValue = kRest;
    VSTGUI::CButtonState lastButtons;
    VSTGUI::CPoint lastPoint;
    float dragRange = 0.0F; // pixels
    bool linearDrag = false;
    float dragCoef = 0.0F; // value for a pixel
    float halfRange = 0.0F;
    float dragScale = 1.0F;   // the whole range in thousands of pixels
    float fineFactor = 10.0F; // on the length of the drag, with Shift
    bool active = false;

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~RelativeMix() override = default;

private:
    void takeRange(const VSTGUI::CButtonState& buttons);
};

} // namespace pedl
