#pragma once

#include "controls/BalancedEdits.h"
#include "controls/Counted.h"
#include "vstgui/lib/cbitmap.h"

namespace pedl {

/// What the counters and the note display have in common: cells in a row, each a frame of one strip
/// of 13 (digits, blank, point, slash), an overlay, and a drag whose every so many pixels are a
/// step.
class DigitDisplay : public BalancedEdits<VSTGUI::CControl> {
public:
    DigitDisplay(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                 float cellSpacing, VSTGUI::CBitmap* digitStrip, VSTGUI::CBitmap* overlayBitmap,
                 VSTGUI::CBitmap* background);

    float cellSpacing; // pixels from cell to cell
    Counted<VSTGUI::CBitmap> digitStrip;
    Counted<VSTGUI::CBitmap> overlayBitmap; // over all cells
    bool blanked = false;                   // the owner blinks it
    VSTGUI::CPoint lastPoint;               // where the last step of a drag was
    float lastSentValue = -1.0F;

protected:
    enum Frame : int32_t { kBlank = 10, kPoint, kSlash };

    ~DigitDisplay() override = default;

    void drawCell(VSTGUI::CDrawContext* context, int32_t fromLeft, int32_t frame) const;
    void drawOverlay(VSTGUI::CDrawContext* context);
    [[nodiscard]] bool isOverCell(const VSTGUI::CPoint& where, int32_t fromLeft) const;

    /// The step that a drag to `where` makes: 1 upwards, -1 downwards, 0 within `pixels` of the
    /// last.
    int32_t dragStep(const VSTGUI::CPoint& where, double pixels);
    /// In a drag: tells the value when it is not the one told last, or has moved from `before`,
    /// since the wheel and the effect move it untold.
    void tellNews(float before);
    /// A step of the wheel.
    void tellInOneEdit();

private:
    [[nodiscard]] double cellLeft(int32_t fromLeft) const;
    [[nodiscard]] double cellHeight() const;
};

} // namespace pedl
