#include "vstgui/lib/platform/common/dirtyregion.h"

#include <cmath>
#include <utility>

namespace VSTGUI {

namespace {

CCoord areaOf(const CRect& rect) {
    return rect.width() * rect.height();
}

CRect united(const CRect& a, const CRect& b) {
    CRect both(a);
    both.unite(b);
    return both;
}

/// Whether they share pixels, or one rectangle around them costs no more than the two.
bool belongTogether(const CRect& a, const CRect& b) {
    CRect shared(a);
    shared.bound(b);
    return !shared.isEmpty() || areaOf(united(a, b)) <= areaOf(a) + areaOf(b);
}

} // namespace

void DirtyRegion::add(const CRect& rect, const CRect& bounds) {
    CRect added(std::floor(rect.left), std::floor(rect.top), std::ceil(rect.right),
                std::ceil(rect.bottom));
    added.bound(bounds);
    if (added.isEmpty())
        return;
    for (std::size_t i = 0; i < rects_.size();) {
        if (!belongTogether(rects_[i], added)) {
            ++i;
            continue;
        }
        added.unite(rects_[i]);
        rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0; // the grown one may reach those that were passed over
    }
    rects_.push_back(added);
    if (rects_.size() > kMaxRects)
        rects_ = {boundsOf(rects_)};
}

std::vector<CRect> DirtyRegion::take() {
    return std::exchange(rects_, {});
}

CRect boundsOf(const std::vector<CRect>& rects) {
    CRect bounds;
    for (const CRect& rect : rects)
        bounds = bounds.isEmpty() ? rect : united(bounds, rect);
    return bounds;
}

} // namespace VSTGUI
