#pragma once

#include "controls/BalancedEdits.h"
#include "controls/Hovering.h"
#include "vstgui/lib/controls/cbuttons.h"

namespace pedl {

/// A toggle of the preset bar: three frames, off, off under the mouse, on. It opens no edit.
class CZMOnOffButton : public Hovering<BalancedEdits<VSTGUI::COnOffButton>> {
public:
    CZMOnOffButton(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                   VSTGUI::CBitmap* background);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    CLASS_METHODS(CZMOnOffButton, COnOffButton)

protected:
    ~CZMOnOffButton() override = default;
};

} // namespace pedl
