#pragma once

#include "controls/BalancedEdits.h"
#include "controls/Hovering.h"
#include "vstgui/lib/controls/cbuttons.h"

namespace pedl {

/// A file button of the preset bar: three frames, normal, under the mouse, pressed.
///
/// It tells 0.5 for the right button alone and 1 for everything else, a right click with a modifier
/// too, and rests at 0 again when the listener returns.
class CSaveLoadButton : public Hovering<BalancedEdits<VSTGUI::CKickButton>> {
public:
    CSaveLoadButton(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                    int32_t heightOfOneImage, VSTGUI::CBitmap* background,
                    const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    CLASS_METHODS(CSaveLoadButton, CKickButton)

protected:
    ~CSaveLoadButton() override = default;
};

} // namespace pedl
