#pragma once

#include "controls/BalancedEdits.h"
#include "controls/Counted.h"
#include "vstgui/lib/cbitmap.h"

namespace pedl {

/// Chooses a waveform. Closed it shows one frame of the background strip: a click on its right or
/// left half goes one on or back (round the ends), a drag of more than 16 pixels to the right or
/// upwards one on (not round). A right click opens the list of all, the strip itself, over
/// `expandedRect`; a click on a row, the wheel or the loss of the focus closes it.
///
/// The value is `currentIndex` / `indexDivisor`.
class CLFOWaveSelector2 : public BalancedEdits<VSTGUI::CControl> {
public:
    /// @param background       a strip of frames as high as `size`
    /// @param hoverBitmap      drawn on the row under the mouse, may be null
    /// @param selectionBitmap  drawn on the row of the current waveform, may be null
    CLFOWaveSelector2(const VSTGUI::CRect& size, const VSTGUI::CRect& expandedSize,
                      VSTGUI::CControlListener* listener, int32_t tag, VSTGUI::CBitmap* background,
                      VSTGUI::CBitmap* hoverBitmap, VSTGUI::CBitmap* selectionBitmap,
                      int32_t indexDivisor, int32_t maxIndex);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& where,
                                            const VSTGUI::CButtonState& buttons) override;
    void looseFocus() override;
    bool removed(VSTGUI::CView* parent) override; // closes the list too
    void setValue(float val) override;

    int32_t currentIndex = 0;
    int32_t maxIndex;
    int32_t indexDivisor;
    VSTGUI::CRect expandedRect;
    VSTGUI::CRect normalRect;
    bool expanded = false;
    Counted<VSTGUI::CBitmap> hoverBitmap;
    Counted<VSTGUI::CBitmap> selectionBitmap;
    int32_t hoverIndex = 0;
    float mouseDownX = 0.0F;
    float mouseDownY = 0.0F;
    bool clickPending = false; // pressed, and not a drag yet
    CLASS_METHODS(CLFOWaveSelector2, CControl)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CLFOWaveSelector2() override = default;

private:
    [[nodiscard]] VSTGUI::CRect row(int32_t index) const;
    void show(const VSTGUI::CRect& area);
    void select(int32_t index);
    void findHoveredRow(const VSTGUI::CPoint& where);
    void chooseHoveredRow();
};

} // namespace pedl
