#include "vstgui/lib/cpoint.h"

#include <cmath>

#include "vstgui/lib/crect.h"

namespace VSTGUI {

CPoint& CPoint::operator()(CCoord newX, CCoord newY) {
    x = newX;
    y = newY;
    return *this;
}

bool CPoint::isInside(const CRect& r) const {
    return r.pointInside(*this);
}

CPoint& CPoint::offset(CCoord dx, CCoord dy) {
    x += dx;
    y += dy;
    return *this;
}

void CPoint::makeIntegral() {
    x = std::floor(x + 0.5);
    y = std::floor(y + 0.5);
}

} // namespace VSTGUI
