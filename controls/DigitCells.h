#pragma once

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"

namespace pedl {

/// The cells of a segment display: a strip of 13 frames (digits, blank, point, slash), which the
/// counters and the note display draw cell by cell and find the mouse in.
struct DigitCells {
    static constexpr int32_t kFrames = 13;
    static constexpr int32_t kBlank = 10; // unlit
    static constexpr int32_t kPoint = 11; // goes over a digit
    static constexpr int32_t kSlash = 12;

    VSTGUI::CBitmap* strip; // may be null
    float spacing;          // pixels from cell to cell

    [[nodiscard]] double height() const { return strip ? strip->getHeight() / kFrames : 0.0; }
    /// Left edge of the cell that is `fromLeft`-th from the left.
    [[nodiscard]] double left(const VSTGUI::CRect& view, int32_t fromLeft) const {
        return view.left + static_cast<int32_t>(static_cast<float>(fromLeft) * spacing + 0.5F);
    }
    [[nodiscard]] bool isOver(const VSTGUI::CPoint& where, const VSTGUI::CRect& view,
                              int32_t fromLeft) const {
        return where.x >= left(view, fromLeft) && where.x < left(view, fromLeft + 1) &&
               where.y > view.top && where.y < view.top + height();
    }
    void draw(VSTGUI::CDrawContext* context, const VSTGUI::CRect& view, int32_t fromLeft,
              int32_t frame) const;
};

} // namespace pedl
