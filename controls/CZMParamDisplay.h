#pragma once

#include "controls/BalancedEdits.h"
#include "vstgui/lib/controls/cparamdisplay.h"

namespace VSTGUI {
class CVSTGUITimer;
}

namespace pedl {

/// A text display that the wheel moves through `stepCount` steps, one in 50 ms at most.
class CZMParamDisplay : public BalancedEdits<VSTGUI::CParamDisplay> {
public:
    CZMParamDisplay(const VSTGUI::CRect& size, VSTGUI::CBitmap* background = nullptr,
                    int32_t style = 0);
    CZMParamDisplay(const CZMParamDisplay& other);

    VSTGUI::CMessageResult notify(VSTGUI::CBaseObject* sender,
                                  VSTGUI::IdStringPtr message) override;

    int32_t stepCount = 2;
    VSTGUI::CVSTGUITimer* wheelTimer = nullptr; // while the last step is fresh
    CLASS_METHODS(CZMParamDisplay, CParamDisplay)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CZMParamDisplay() override;

private:
    void discardTimer();
};

} // namespace pedl
