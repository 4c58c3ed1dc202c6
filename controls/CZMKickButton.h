#pragma once

#include "controls/BalancedEdits.h"
#include "controls/Hovering.h"
#include "vstgui/lib/controls/cbuttons.h"

namespace pedl {

/// A push button of the preset bar: three frames, normal, under the mouse, pressed. It tells its
/// press with 1 and does not tell its release.
///
/// With `doubleClickOnly` nothing but a double click presses it, with Control as 0.5.
class CZMKickButton : public Hovering<BalancedEdits<VSTGUI::CKickButton>> {
public:
    CZMKickButton(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                  int32_t heightOfOneImage, VSTGUI::CBitmap* background,
                  const VSTGUI::CPoint& offset, bool doubleClickOnly);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    /// Keeps the mouse until the release, whatever else is pressed meanwhile.
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;

    bool doubleClickOnly;
    bool pressed = false;
    CLASS_METHODS(CZMKickButton, CKickButton)

protected:
    ~CZMKickButton() override = default;
};

} // namespace pedl
