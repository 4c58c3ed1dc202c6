#pragma once

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

struct CRect;

/// A place, or a size, in logical pixels.
struct CPoint {
    constexpr CPoint(CCoord horizontal = 0, CCoord vertical = 0) : x(horizontal), y(vertical) {}
    CPoint& operator()(CCoord newX, CCoord newY);

    /// Half-open, as `CRect::pointInside`: rectangles that share an edge never both hold a point.
    bool isInside(const CRect& r) const;

    bool operator==(const CPoint& other) const { return x == other.x && y == other.y; }
    bool operator!=(const CPoint& other) const { return !(*this == other); }
    CPoint& operator+=(const CPoint& other) { return offset(other.x, other.y); }
    CPoint& operator-=(const CPoint& other) { return offset(-other.x, -other.y); }
    CPoint operator+(const CPoint& other) const { return CPoint(x + other.x, y + other.y); }
    CPoint operator-(const CPoint& other) const { return CPoint(x - other.x, y - other.y); }
    CPoint& offset(CCoord dx, CCoord dy);

    /// Rounds both to whole pixels, halves upwards.
    void makeIntegral();

    union {
        CCoord h;
        CCoord x;
    };
    union {
        CCoord v;
        CCoord y;
    };
};

} // namespace VSTGUI
