#pragma once

#include "vstgui/lib/cpoint.h"

namespace VSTGUI {

/// A rectangle in logical pixels; right and bottom edge are outside.
struct CRect {
    constexpr CRect(CCoord leftEdge = 0, CCoord topEdge = 0, CCoord rightEdge = 0,
                    CCoord bottomEdge = 0)
        : left(leftEdge), top(topEdge), right(rightEdge), bottom(bottomEdge) {}
    CRect(const CPoint& origin, const CPoint& size);

    /// Sets all four edges; edges given the wrong way round are exchanged.
    CRect& operator()(CCoord newLeft, CCoord newTop, CCoord newRight, CCoord newBottom);
    bool operator==(const CRect& other) const;
    bool operator!=(const CRect& other) const { return !(*this == other); }

    CCoord width() const { return right - left; }
    CCoord height() const { return bottom - top; }
    CCoord getWidth() const { return right - left; }
    CCoord getHeight() const { return bottom - top; }
    void setWidth(CCoord newWidth) { right = left + newWidth; }
    void setHeight(CCoord newHeight) { bottom = top + newHeight; }
    CPoint getTopLeft() const { return CPoint(left, top); }
    CPoint getBottomRight() const { return CPoint(right, bottom); }
    CPoint getCenter() const { return CPoint((left + right) / 2, (top + bottom) / 2); }
    CPoint getSize() const { return CPoint(width(), height()); }
    void setTopLeft(const CPoint& topLeft); // the other two edges stay
    void setSize(const CPoint& size);       // left and top edge stay

    CRect& offset(CCoord dx, CCoord dy);
    CRect& inset(CCoord dx, CCoord dy); // each edge moves inwards
    CRect& moveTo(CCoord x, CCoord y);  // keeps the size

    bool pointInside(const CPoint& where) const;
    bool isEmpty() const { return right <= left || bottom <= top; }

    /// Touching edges count as overlap.
    bool rectOverlap(const CRect& other) const;

    /// Cuts to what lies in `other` too; never inverted, an empty result has no size.
    void bound(const CRect& other);

    /// Grows to hold `other`.
    void unite(const CRect& other);
    void normalize();
    void originize() { moveTo(0, 0); }
    void centerInside(const CRect& other);

    /// Rounds the edges to whole pixels, halves upwards.
    void makeIntegral();

    CCoord left, top, right, bottom;
};

} // namespace VSTGUI
