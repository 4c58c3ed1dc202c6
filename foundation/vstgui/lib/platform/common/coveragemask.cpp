#include "vstgui/lib/platform/common/coveragemask.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_STROKER_H

namespace VSTGUI {

namespace {

constexpr double kFarthestPixel = 30000.0; // beyond every surface, within the rasteriser's range
constexpr std::size_t kMostPoints = 16000; // an outline counts them in 16 bits
constexpr double kSharpestMitre = 4.0;     // half widths from a corner to its point

/// Also for what is not a number.
double onReachablePixel(CCoord coordinate) {
    return std::isnan(coordinate) ? 0.0 : std::clamp(coordinate, -kFarthestPixel, kFarthestPixel);
}

/// An outline of straight lines in the rasteriser's space: 64ths of a pixel from the lower left
/// corner of `bounds`, upwards.
struct Outline {
    Outline(std::span<const CPoint> corners, const PixelRect& bounds) {
        corners = corners.first(std::min(corners.size(), kMostPoints));
        for (const CPoint& corner : corners) {
            const double x = onReachablePixel(corner.x) - bounds.left;
            const double y = bounds.bottom - onReachablePixel(corner.y);
            points.push_back({std::lround(x * 64.0), std::lround(y * 64.0)});
        }
        tags.assign(points.size(), FT_CURVE_TAG_ON);
        lastPoint = static_cast<short>(points.size() - 1);
        outline.n_contours = 1;
        outline.n_points = static_cast<short>(points.size());
        outline.points = points.data();
        outline.tags = tags.data();
        outline.contours = &lastPoint;
        outline.flags = FT_OUTLINE_NONE;
    }
    Outline(const Outline&) = delete;
    Outline& operator=(const Outline&) = delete;

    std::vector<FT_Vector> points;
    std::vector<char> tags;
    short lastPoint = 0;
    FT_Outline outline{};
};

} // namespace

PixelRect PixelRect::cutTo(const PixelRect& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
}

PixelRect boundsOf(std::span<const CPoint> points, double margin) {
    if (points.empty())
        return {};
    double left = kFarthestPixel, top = kFarthestPixel;
    double right = -kFarthestPixel, bottom = -kFarthestPixel;
    for (const CPoint& point : points) {
        left = std::min(left, onReachablePixel(point.x));
        top = std::min(top, onReachablePixel(point.y));
        right = std::max(right, onReachablePixel(point.x));
        bottom = std::max(bottom, onReachablePixel(point.y));
    }
    return {static_cast<int32_t>(std::floor(left - margin)),
            static_cast<int32_t>(std::floor(top - margin)),
            static_cast<int32_t>(std::ceil(right + margin)),
            static_cast<int32_t>(std::ceil(bottom + margin))};
}

CoverageMask::CoverageMask(const PixelRect& bounds)
    : bounds_(bounds.isEmpty() ? PixelRect{} : bounds),
      strideBytes_((bounds_.width() + 3) & ~3), // whole words, as pixman wants them
      coverage_(static_cast<std::size_t>(strideBytes_) *
                static_cast<std::size_t>(bounds_.height())) {}

namespace {

void rasterise(FT_LibraryRec_* library, FT_Outline& outline, CoverageMask& mask) {
    FT_Bitmap bitmap{};
    bitmap.rows = static_cast<unsigned>(mask.bounds().height());
    bitmap.width = static_cast<unsigned>(mask.bounds().width());
    bitmap.pitch = mask.strideBytes();
    bitmap.buffer = mask.data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
    FT_Outline_Get_Bitmap(library, &outline, &bitmap);
}

} // namespace

void CoverageMask::addPolygon(FT_LibraryRec_* library, std::span<const CPoint> points) {
    if (!library || points.size() < 3 || bounds_.isEmpty())
        return;
    Outline polygon(points, bounds_);
    rasterise(library, polygon.outline, *this);
}

void CoverageMask::addStroke(FT_LibraryRec_* library, std::span<const CPoint> points, bool isClosed,
                             double widthPixels) {
    FT_Stroker stroker = nullptr;
    if (points.size() < 2 || bounds_.isEmpty() || !(widthPixels > 0) || !library ||
        FT_Stroker_New(library, &stroker) != 0)
        return;
    const double halfWidth = std::min(widthPixels, kFarthestPixel) / 2.0;
    FT_Stroker_Set(stroker, std::lround(halfWidth * 64.0), FT_STROKER_LINECAP_SQUARE,
                   FT_STROKER_LINEJOIN_MITER_FIXED, std::lround(kSharpestMitre * 65536.0));

    Outline path(points, bounds_);
    FT_UInt numPoints = 0;
    FT_UInt numContours = 0;
    FT_Outline border;
    if (FT_Stroker_ParseOutline(stroker, &path.outline, !isClosed) == 0 &&
        FT_Stroker_GetCounts(stroker, &numPoints, &numContours) == 0 && numPoints < 0x7FFF &&
        FT_Outline_New(library, numPoints, static_cast<FT_Int>(numContours), &border) == 0) {
        border.n_points = 0; // exporting appends
        border.n_contours = 0;
        FT_Stroker_Export(stroker, &border);
        rasterise(library, border, *this);
        border.n_points = static_cast<short>(numPoints);
        border.n_contours = static_cast<short>(numContours);
        FT_Outline_Done(library, &border);
    }
    FT_Stroker_Done(stroker);
}

void CoverageMask::addPixelLine(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY,
                                int32_t sidePixels) {
    const int64_t dx = std::abs(int64_t{toX} - fromX);
    const int64_t dy = -std::abs(int64_t{toY} - fromY);
    const int32_t stepX = fromX < toX ? 1 : -1;
    const int32_t stepY = fromY < toY ? 1 : -1;
    int64_t error = dx + dy; // Bresenham's, of both axes at once
    while (true) {
        fillSquare(fromX, fromY, sidePixels);
        if (fromX == toX && fromY == toY)
            return;
        const int64_t doubled = 2 * error;
        if (doubled >= dy) {
            error += dy;
            fromX += stepX;
        }
        if (doubled <= dx) {
            error += dx;
            fromY += stepY;
        }
    }
}

void CoverageMask::fillSquare(int32_t x, int32_t y, int32_t sidePixels) {
    const PixelRect square = PixelRect{x, y, x + sidePixels, y + sidePixels}.cutTo(bounds_);
    for (int32_t row = square.top; row < square.bottom; ++row) {
        const auto start =
            coverage_.begin() + static_cast<std::ptrdiff_t>(row - bounds_.top) * strideBytes_;
        if (!square.isEmpty())
            std::fill(start + (square.left - bounds_.left), start + (square.right - bounds_.left),
                      uint8_t{0xFF});
    }
}

void CoverageMask::harden() {
    for (uint8_t& coverage : coverage_)
        coverage = coverage >= 0x80 ? 0xFF : 0;
}

} // namespace VSTGUI
