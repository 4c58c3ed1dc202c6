#pragma once

#include "controls/BalancedEdits.h"
#include "controls/ValueLabel.h"

namespace pedl {

/// A switch of several positions from left to right with its value written below.
///
/// Its positions share the bitmap's width less `horizontalInset` on either side. A press is told
/// once with the value as it stands, then moves as a drag does.
class CHorizontalSwitchWithDynamicLabel : public ValueLabel<BalancedEdits<VSTGUI::CControl>>,
                                          public VSTGUI::IMultiBitmapControl {
public:
    /// @param iMaxPositions  has no meaning
    CHorizontalSwitchWithDynamicLabel(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener,
                                      int32_t tag, int32_t subPixmaps,
                                      VSTGUI::CCoord heightOfOneImage, int32_t iMaxPositions,
                                      VSTGUI::CBitmap* background,
                                      const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    bool sizeToFit() override;

    /// Margin left and right of the positions; what leaves no room for them becomes 0.
    virtual void setHorizontalInset(double pixels);
    void setLabelYOffset(double pixels) override;
    void drawLabel(VSTGUI::CDrawContext* context, const char* text) override;

    double horizontalInset = 0.0;
    double stepWidth = 0.0; // of one position, as the last press found it
    VSTGUI::CPoint offset;
    CLASS_METHODS(CHorizontalSwitchWithDynamicLabel, CControl)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CHorizontalSwitchWithDynamicLabel() override = default;

private:
    [[nodiscard]] float valueAt(int32_t position) const;
    void tellIfMoved(float before);
};

} // namespace pedl
