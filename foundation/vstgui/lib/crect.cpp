#include "vstgui/lib/crect.h"

#include <algorithm>
#include <cmath>

namespace VSTGUI {

CRect::CRect(const CPoint& origin, const CPoint& size)
    : left(origin.x), top(origin.y), right(origin.x + size.x), bottom(origin.y + size.y) {}

CRect& CRect::operator()(CCoord newLeft, CCoord newTop, CCoord newRight, CCoord newBottom) {
    left = newLeft;
    top = newTop;
    right = newRight;
    bottom = newBottom;
    normalize();
    return *this;
}

bool CRect::operator==(const CRect& other) const {
    return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
}

void CRect::setTopLeft(const CPoint& topLeft) {
    left = topLeft.x;
    top = topLeft.y;
}

void CRect::setSize(const CPoint& size) {
    setWidth(size.x);
    setHeight(size.y);
}

CRect& CRect::offset(CCoord dx, CCoord dy) {
    left += dx;
    right += dx;
    top += dy;
    bottom += dy;
    return *this;
}

CRect& CRect::inset(CCoord dx, CCoord dy) {
    left += dx;
    right -= dx;
    top += dy;
    bottom -= dy;
    return *this;
}

CRect& CRect::moveTo(CCoord x, CCoord y) {
    return offset(x - left, y - top);
}

bool CRect::pointInside(const CPoint& where) const {
    return where.x >= left && where.x < right && where.y >= top && where.y < bottom;
}

bool CRect::rectOverlap(const CRect& other) const {
    return right >= other.left && left <= other.right && bottom >= other.top && top <= other.bottom;
}

void CRect::bound(const CRect& other) {
    left = std::max(left, other.left);
    top = std::max(top, other.top);
    right = std::max(left, std::min(right, other.right));
    bottom = std::max(top, std::min(bottom, other.bottom));
}

void CRect::unite(const CRect& other) {
    left = std::min(left, other.left);
    top = std::min(top, other.top);
    right = std::max(right, other.right);
    bottom = std::max(bottom, other.bottom);
}

void CRect::normalize() {
    if (left > right)
        std::swap(left, right);
    if (top > bottom)
        std::swap(top, bottom);
}

void CRect::centerInside(const CRect& other) {
    moveTo(other.left + (other.width() - width()) / 2, other.top + (other.height() - height()) / 2);
}

void CRect::makeIntegral() {
    left = std::floor(left + 0.5);
    top = std::floor(top + 0.5);
    right = std::floor(right + 0.5);
    bottom = std::floor(bottom + 0.5);
}

} // namespace VSTGUI
