#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "vstgui/lib/cpoint.h"

struct FT_LibraryRec_;

namespace VSTGUI {

/// Left, top, right, bottom in a surface's pixels; right and bottom are outside.
struct PixelRect {
    int32_t left = 0, top = 0, right = 0, bottom = 0;

    int32_t width() const { return right - left; }
    int32_t height() const { return bottom - top; }
    bool isEmpty() const { return right <= left || bottom <= top; }
    PixelRect cutTo(const PixelRect& other) const;
    bool operator==(const PixelRect&) const = default;
};

/// How much of each pixel a shape covers, 0 to 255, inside an area.
///
/// Points are pixels of a surface, (0, 0) being the corner of the first one; whole numbers are
/// edges. Shapes may be any: far away, crossing themselves, without extent.
class CoverageMask {
public:
    /// @param bounds  nothing is kept outside
    explicit CoverageMask(const PixelRect& bounds);

    /// The inside of a closed polygon; what is wound around more than once is inside.
    void addPolygon(FT_LibraryRec_* library, std::span<const CPoint> points);

    /// A line of that width along the points, back to the first when `isClosed`. Ends reach half a
    /// width beyond their points; corners are pointed.
    void addStroke(FT_LibraryRec_* library, std::span<const CPoint> points, bool isClosed,
                   double widthPixels);

    /// A line of whole pixels, a square of that side being drawn from one place to the other. The
    /// places are its upper left corners.
    void addPixelLine(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY, int32_t sidePixels);

    /// Half covered or more becomes wholly covered, the rest nothing.
    void harden();

    const PixelRect& bounds() const { return bounds_; }
    int32_t strideBytes() const { return strideBytes_; }
    uint8_t* data() { return coverage_.data(); }

private:
    void fillSquare(int32_t x, int32_t y, int32_t sidePixels);

    PixelRect bounds_;
    int32_t strideBytes_;
    std::vector<uint8_t> coverage_;
};

/// The pixels that a polygon may touch, with `margin` pixels around.
PixelRect boundsOf(std::span<const CPoint> points, double margin);

} // namespace VSTGUI
