#pragma once

#include "controls/BalancedEdits.h"
#include "vstgui/lib/controls/ctextedit.h"

#include <array>

namespace pedl {

/// The name of a program: a text that a click opens for writing, in a `ZMTSystemBox`. The wheel
/// moves the value through `stepCount` steps; the value is written as a text only where there is a
/// procedure for it.
class CZMTTextEdit : public BalancedEdits<VSTGUI::CTextEdit> {
public:
    CZMTTextEdit(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                 const char* text, VSTGUI::CBitmap* background, int32_t style, bool forceArial);

    virtual bool isEditing() { return editing; }
    virtual void setEditFontColor(const VSTGUI::CColor& colour);
    // Kept, and used by nobody
    virtual void setSpareColor1(const VSTGUI::CColor& colour) { setSpareColor(0, colour); }
    virtual void setSpareColor2(const VSTGUI::CColor& colour) { setSpareColor(1, colour); }
    virtual void setSpareColor3(const VSTGUI::CColor& colour) { setSpareColor(2, colour); }
    virtual void setSpareFloat(float number) { spareFloat = number; }
    /// Moves the open field against the control.
    virtual void setEditOffset(const VSTGUI::CPoint& offset) { editOffset = offset; }
    virtual void setStepCount(int32_t steps) { stepCount = steps < 2 ? 2 : steps; }

    void draw(VSTGUI::CDrawContext* context) override;
    void takeFocus() override;
    void looseFocus() override;
    bool removed(VSTGUI::CView* parent) override;
    void setValue(float val) override;

    bool forceArial;
    bool editFontColorOverride = false;
    VSTGUI::CColor editFontColor = VSTGUI::kWhiteCColor;
    std::array<bool, 3> spareColorOverride{};
    std::array<VSTGUI::CColor, 3> spareColor{VSTGUI::kWhiteCColor, VSTGUI::kWhiteCColor,
                                             VSTGUI::kWhiteCColor};
    float spareFloat = 5.0F;
    VSTGUI::CPoint editOffset;
    int32_t stepCount = 2;
    bool editing = false; // the field is open
    CLASS_METHODS(CZMTTextEdit, CTextEdit)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CZMTTextEdit() override = default;

private:
    void setSpareColor(std::size_t which, const VSTGUI::CColor& colour) {
        spareColorOverride[which] = true;
        spareColor[which] = colour;
    }
};

} // namespace pedl
