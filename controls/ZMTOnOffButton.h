#pragma once

#include "controls/BalancedEdits.h"
#include "vstgui/lib/controls/cbuttons.h"

namespace pedl {

/// A two-state button: the upper half of its bitmap below a value of 0.5, the lower one from there.
///
/// A click is told twice, with the old value and with the new one.
class ZMTOnOffButton : public BalancedEdits<VSTGUI::COnOffButton> {
public:
    ZMTOnOffButton(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                   VSTGUI::CBitmap* background);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    CLASS_METHODS(ZMTOnOffButton, COnOffButton)

protected:
    ~ZMTOnOffButton() override = default;
};

} // namespace pedl
