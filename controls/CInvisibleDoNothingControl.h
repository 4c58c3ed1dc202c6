#pragma once

#include "vstgui/lib/controls/ccontrol.h"

namespace pedl {

/// An area that cannot be seen and tells the listener of each click on it.
///
/// Its value is never touched here: the owner reads what it means from the tag.
/// Thread: the editor's.
class CInvisibleDoNothingControl : public VSTGUI::CControl {
public:
    CInvisibleDoNothingControl(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener,
                               int32_t tag);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    CLASS_METHODS(CInvisibleDoNothingControl, CControl)

protected:
    ~CInvisibleDoNothingControl() override = default;
};

} // namespace pedl
