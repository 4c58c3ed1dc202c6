#pragma once

#include <vector>

#include "vstgui/lib/crect.h"

namespace VSTGUI {

/// The areas of a window that have to be redrawn.
///
/// Kept as a few rectangles of whole logical pixels, none of which overlap: nothing is drawn twice.
class DirtyRegion {
public:
    /// Rounds outwards, cuts to `bounds`.
    void add(const CRect& rect, const CRect& bounds);
    void clear() { rects_.clear(); }
    bool isEmpty() const { return rects_.empty(); }
    const std::vector<CRect>& rects() const { return rects_; }

    /// Hands the rectangles over; nothing is dirty then.
    std::vector<CRect> take();

private:
    /// Beyond this many, one rectangle around all of them is cheaper than the list.
    static constexpr std::size_t kMaxRects = 32;

    std::vector<CRect> rects_;
};

/// The smallest rectangle that holds all of `rects`; empty for none.
CRect boundsOf(const std::vector<CRect>& rects);

} // namespace VSTGUI
