#pragma once

#include "controls/ValueToText.h"
#include "vstgui/lib/controls/cparamdisplay.h"

namespace pedl {

/// One line of text: a parameter's value under a knob that has no label of its own. Takes no
/// events; every value that is set is drawn.
class CZMTParamDisplay : public VSTGUI::CParamDisplay {
public:
    /// Lies a pixel to the right of `size`, and a pixel below it.
    CZMTParamDisplay(const VSTGUI::CRect& size, const VSTGUI::CColor& fontColor,
                     VSTGUI::CBitmap* background, int32_t style = 0);

    /// Asked first, for a tag of 0 or more. `userData` is the display's own too.
    virtual void setTaggedValueToStringProc(ValueToTextProcWithData proc, void* userData);

    void draw(VSTGUI::CDrawContext* context) override;
    void setValue(float val) override;

    ValueToTextProcWithData taggedValueToStringProc = nullptr;
    CLASS_METHODS(CZMTParamDisplay, CParamDisplay)

protected:
    ~CZMTParamDisplay() override = default;
};

} // namespace pedl
