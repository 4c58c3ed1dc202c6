#pragma once

#include "controls/BalancedEdits.h"
#include "vstgui/lib/controls/cswitch.h"

namespace pedl {

/// A horizontal switch that every click, with any button, moves one position on; after the last
/// comes the first.
class CHorizontalSwitchSeq : public BalancedEdits<VSTGUI::CHorizontalSwitch> {
public:
    CHorizontalSwitchSeq(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                         int32_t subPixmaps, VSTGUI::CCoord heightOfOneImage, int32_t iMaxPositions,
                         VSTGUI::CBitmap* background,
                         const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    CLASS_METHODS(CHorizontalSwitchSeq, CHorizontalSwitch)

protected:
    ~CHorizontalSwitchSeq() override = default;
};

} // namespace pedl
