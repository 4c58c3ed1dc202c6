#include "vstgui/lib/platform/common/pixmanpainter.h"

#include "vstgui/lib/platform/common/fontengine.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <pixman.h>
#include <vector>

namespace VSTGUI {

namespace {

constexpr double kFarthestPixel = 30000.0; // beyond every surface, within pixman's range

struct Unref {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using ImageHandle = std::unique_ptr<pixman_image_t, Unref>;

/// 16 bits a channel, premultiplied.
pixman_color_t premultiplied(const CColor& color, float alpha) {
    const double factor = color.alpha / 255.0 * std::clamp(alpha, 0.0F, 1.0F);
    const auto channel = [factor](uint8_t value) {
        return static_cast<uint16_t>(std::lround(value * 257.0 * factor));
    };
    return {channel(color.red), channel(color.green), channel(color.blue),
            static_cast<uint16_t>(std::lround(65535.0 * factor))};
}

ImageHandle solid(const pixman_color_t& color) {
    return ImageHandle(pixman_image_create_solid_fill(&color));
}

/// A mask that weakens a picture; null for none.
ImageHandle solidAlpha(float alpha) {
    if (alpha >= 1.0F)
        return nullptr;
    return solid({0, 0, 0, static_cast<uint16_t>(std::lround(alpha * 65535.0F))});
}

bool isWhole(double pixels) {
    constexpr double kFinestStep = 1.0 / 256.0; // of coverage
    return std::fabs(pixels - std::round(pixels)) < kFinestStep;
}

} // namespace

PixmanPainter::PixmanPainter(PixmanSurface& surface, FontEngine& fonts)
    : surface_(surface), fonts_(fonts), scale_(surface.scale()) {
    surface_.holdFonts();
}

PixmanPainter::~PixmanPainter() {
    if (surface_.image())
        pixman_image_set_clip_region32(surface_.image(), nullptr);
}

int32_t PixmanPainter::pixel(CCoord coordinate) const {
    const double nearest = std::floor(coordinate * scale_ + 0.5);
    if (std::isnan(nearest))
        return 0;
    return static_cast<int32_t>(std::clamp(nearest, -kFarthestPixel, kFarthestPixel));
}

PixelRect PixmanPainter::pixels(const CRect& rect) const {
    return {pixel(rect.left), pixel(rect.top), pixel(rect.right), pixel(rect.bottom)};
}

PixelRect PixmanPainter::clipTo(const Pen& pen) {
    if (!surface_.image())
        return {};
    const PixelRect clip =
        pixels(pen.clip).cutTo({0, 0, surface_.widthPixels(), surface_.heightPixels()});
    if (clip.isEmpty())
        return {};
    // Every time: another context may have drawn on the surface since.
    pixman_region32_t region;
    pixman_region32_init_rect(&region, clip.left, clip.top, static_cast<unsigned>(clip.width()),
                              static_cast<unsigned>(clip.height()));
    pixman_image_set_clip_region32(surface_.image(), &region);
    pixman_region32_fini(&region);
    return clip;
}

void PixmanPainter::fill(const Pen& pen, std::span<const PixelRect> rects, const CColor& color) {
    const PixelRect clip = clipTo(pen);
    std::array<pixman_box32_t, 4> boxes{};
    int count = 0;
    for (const PixelRect& rect : rects.first(std::min(rects.size(), boxes.size())))
        if (const PixelRect seen = rect.cutTo(clip); !seen.isEmpty())
            boxes[static_cast<std::size_t>(count++)] = {seen.left, seen.top, seen.right,
                                                        seen.bottom};
    const pixman_color_t premultipliedColor = premultiplied(color, pen.alpha);
    if (count > 0)
        pixman_image_fill_boxes(PIXMAN_OP_OVER, surface_.image(), &premultipliedColor, count,
                                boxes.data());
}

void PixmanPainter::fillRect(const Pen& pen, const CRect& rect, const CColor& color) {
    fill(pen, std::array{pixels(rect)}, color);
}

void PixmanPainter::clearRect(const Pen& pen, const CRect& rect) {
    const PixelRect seen = pixels(rect).cutTo(clipTo(pen));
    const pixman_color_t nothing{};
    const pixman_box32_t box{seen.left, seen.top, seen.right, seen.bottom};
    if (!seen.isEmpty())
        pixman_image_fill_boxes(PIXMAN_OP_SRC, surface_.image(), &nothing, 1, &box);
}

void PixmanPainter::frameRect(const Pen& pen, const CRect& rect) {
    const PixelRect outer = pixels(rect);
    const int32_t side = penSidePixels(pen);
    if (outer.isEmpty() || side == 0)
        return;
    const PixelRect inner{outer.left + side, outer.top + side, outer.right - side,
                          outer.bottom - side};
    if (inner.isEmpty()) {
        fill(pen, std::array{outer}, pen.frameColor);
        return;
    }
    // None of them overlap: a translucent frame has no darker corners.
    fill(pen,
         std::array{PixelRect{outer.left, outer.top, outer.right, inner.top},
                    PixelRect{outer.left, inner.bottom, outer.right, outer.bottom},
                    PixelRect{outer.left, inner.top, inner.left, inner.bottom},
                    PixelRect{inner.right, inner.top, outer.right, inner.bottom}},
         pen.frameColor);
}

/// A line's width on the surface; never thinner than a pixel, unless it has none.
int32_t PixmanPainter::penSidePixels(const Pen& pen) const {
    return pen.lineWidth > 0 ? std::max(1, pixel(pen.lineWidth)) : 0;
}

/// Upper left corner of the square that a line of the pen's width covers at a point: an odd width
/// is centred on the point's own pixel, an even one has one pixel more to the right and below.
CPoint PixmanPainter::penCorner(const Pen& pen, const CPoint& point) const {
    const double before = std::max(0.0, std::floor((pen.lineWidth - 1.0) / 2.0));
    return point - CPoint(before, before);
}

/// Middle of that square, in pixels of the surface.
CPoint PixmanPainter::penCentre(const Pen& pen, const CPoint& point) const {
    const CPoint corner = penCorner(pen, point);
    const double half = std::max(pen.lineWidth, 1.0) / 2.0;
    return CPoint((corner.x + half) * scale_, (corner.y + half) * scale_);
}

void PixmanPainter::line(const Pen& pen, const CPoint& from, const CPoint& to) {
    const int32_t side = penSidePixels(pen);
    if (side == 0)
        return;
    const std::array centres{penCentre(pen, from), penCentre(pen, to)};
    const double halfWidth = pen.lineWidth * scale_ / 2.0;
    const bool isStraight = from.x == to.x || from.y == to.y;
    const bool hasWholeEdges = isWhole(centres[0].x - halfWidth) &&
                               isWhole(centres[0].y - halfWidth) &&
                               isWhole(centres[1].x - halfWidth) &&
                               isWhole(centres[1].y - halfWidth) && isWhole(2.0 * halfWidth);
    const CPoint first = penCorner(pen, from);
    const CPoint last = penCorner(pen, to);
    if (isStraight && (hasWholeEdges || !pen.antialias)) {
        const auto [left, right] = std::minmax({pixel(first.x), pixel(last.x)});
        const auto [top, bottom] = std::minmax({pixel(first.y), pixel(last.y)});
        fill(pen, std::array{PixelRect{left, top, right + side, bottom + side}}, pen.frameColor);
        return;
    }
    CoverageMask mask(boundsOf(centres, halfWidth + side + 1.0).cutTo(clipTo(pen)));
    if (mask.bounds().isEmpty())
        return;
    if (pen.antialias)
        fonts_.withLibrary(
            [&](auto* library) { mask.addStroke(library, centres, false, 2.0 * halfWidth); });
    else
        mask.addPixelLine(pixel(first.x), pixel(first.y), pixel(last.x), pixel(last.y), side);
    paint(pen, mask, pen.frameColor);
}

void PixmanPainter::fillPolygon(const Pen& pen, std::span<const CPoint> corners) {
    std::vector<CPoint> edges;
    for (const CPoint& corner : corners)
        edges.emplace_back(corner.x * scale_, corner.y * scale_);
    fillShape(pen, edges);
}

void PixmanPainter::fillInsideFrame(const Pen& pen, std::span<const CPoint> corners) {
    std::vector<CPoint> centres;
    for (const CPoint& corner : corners)
        centres.push_back(penCentre(pen, corner));
    fillShape(pen, centres);
}

void PixmanPainter::fillShape(const Pen& pen, std::span<const CPoint> corners) {
    CoverageMask mask(boundsOf(corners, 0.0).cutTo(clipTo(pen)));
    fonts_.withLibrary([&](auto* library) { mask.addPolygon(library, corners); });
    if (!pen.antialias)
        mask.harden();
    paint(pen, mask, pen.fillColor);
}

void PixmanPainter::framePolygon(const Pen& pen, std::span<const CPoint> corners) {
    const int32_t side = penSidePixels(pen);
    if (side == 0)
        return;
    std::vector<CPoint> centres;
    for (const CPoint& corner : corners)
        centres.push_back(penCentre(pen, corner));
    const double widthPixels = pen.lineWidth * scale_;
    CoverageMask mask(
        boundsOf(centres, 4.0 * std::max<double>(widthPixels, side)).cutTo(clipTo(pen)));
    if (mask.bounds().isEmpty())
        return;
    if (pen.antialias) {
        fonts_.withLibrary(
            [&](auto* library) { mask.addStroke(library, centres, true, widthPixels); });
    } else {
        CPoint previous = penCorner(pen, corners.back());
        for (const CPoint& point : corners) {
            const CPoint next = penCorner(pen, point);
            mask.addPixelLine(pixel(previous.x), pixel(previous.y), pixel(next.x), pixel(next.y),
                              side);
            previous = next;
        }
    }
    paint(pen, mask, pen.frameColor);
}

void PixmanPainter::paint(const Pen& pen, CoverageMask& mask, const CColor& color) {
    const PixelRect& bounds = mask.bounds();
    if (bounds.isEmpty())
        return;
    const ImageHandle coverage(pixman_image_create_bits(PIXMAN_a8, bounds.width(), bounds.height(),
                                                        reinterpret_cast<uint32_t*>(mask.data()),
                                                        mask.strideBytes()));
    const ImageHandle source = solid(premultiplied(color, pen.alpha));
    if (coverage && source)
        pixman_image_composite32(PIXMAN_OP_OVER, source.get(), coverage.get(), surface_.image(), 0,
                                 0, 0, 0, bounds.left, bounds.top, bounds.width(), bounds.height());
}

void PixmanPainter::bitmap(const Pen& pen, const IPlatformBitmap& bitmap, const CRect& dest,
                           const CPoint& offset, float alpha) {
    const float weakened = pen.alpha * std::clamp(alpha, 0.0F, 1.0F);
    const PixelRect clip = clipTo(pen);
    if (clip.isEmpty() || !(weakened > 0.0F))
        return;
    const PixmanSurface* image = bitmap.imageFor(scale_, surface_.holdPictures());
    if (!image || !image->image())
        return;

    // The whole picture's place, cut to `dest`: the same rounding for every offset, so that the
    // frames of a strip never show a line of their neighbours.
    CPoint size;
    bitmap.getSize(size);
    CRect place(CPoint(dest.left - offset.x, dest.top - offset.y), size);
    if (image->scale() == scale_) {
        const int32_t left = pixel(place.left);
        const int32_t top = pixel(place.top);
        const PixelRect seen =
            PixelRect{left, top, left + image->widthPixels(), top + image->heightPixels()}
                .cutTo(pixels(dest))
                .cutTo(clip);
        if (!seen.isEmpty())
            copy(*image, seen, seen.left - left, seen.top - top, weakened);
        return;
    }
    place.bound(dest);
    const auto imagePixel = [image](CCoord coordinate) {
        return static_cast<int32_t>(
            std::clamp(std::floor(coordinate * image->scale() + 0.5), 0.0, kFarthestPixel));
    };
    const PixelRect source = PixelRect{imagePixel(place.left - dest.left + offset.x),
                                       imagePixel(place.top - dest.top + offset.y),
                                       imagePixel(place.right - dest.left + offset.x),
                                       imagePixel(place.bottom - dest.top + offset.y)}
                                 .cutTo({0, 0, image->widthPixels(), image->heightPixels()});
    if (!source.isEmpty() && !pixels(place).isEmpty())
        stretch(*image, pixels(place), source, weakened);
}

void PixmanPainter::copy(const PixmanSurface& image, const PixelRect& dest, int32_t sourceX,
                         int32_t sourceY, float alpha) {
    image.needRows(sourceY, sourceY + dest.height());
    const ImageHandle mask = solidAlpha(alpha);
    pixman_image_composite32(PIXMAN_OP_OVER, image.image(), mask.get(), surface_.image(), sourceX,
                             sourceY, 0, 0, dest.left, dest.top, dest.width(), dest.height());
}

/// Whole multiples repeat pixels, which stay sharp; other factors blend neighbours, those inside
/// `source` alone.
void PixmanPainter::stretch(const PixmanSurface& image, const PixelRect& dest,
                            const PixelRect& source, float alpha) {
    image.needRows(source.top, source.bottom);
    const auto pixelsPerRow = image.strideBytes() / static_cast<int32_t>(sizeof(uint32_t));
    uint32_t* corner = pixman_image_get_data(image.image()) +
                       static_cast<std::ptrdiff_t>(source.top) * pixelsPerRow + source.left;
    const ImageHandle part(pixman_image_create_bits(PIXMAN_a8r8g8b8, source.width(),
                                                    source.height(), corner, image.strideBytes()));
    if (!part)
        return;
    const double stepX = static_cast<double>(source.width()) / dest.width();
    const double stepY = static_cast<double>(source.height()) / dest.height();
    pixman_transform_t step;
    pixman_transform_init_scale(&step, pixman_double_to_fixed(stepX),
                                pixman_double_to_fixed(stepY));
    pixman_image_set_transform(part.get(), &step);
    const bool repeatsPixels = isWhole(1.0 / stepX) && isWhole(1.0 / stepY);
    pixman_image_set_filter(
        part.get(), repeatsPixels ? PIXMAN_FILTER_NEAREST : PIXMAN_FILTER_BILINEAR, nullptr, 0);
    pixman_image_set_repeat(part.get(), PIXMAN_REPEAT_PAD);
    const ImageHandle mask = solidAlpha(alpha);
    pixman_image_composite32(PIXMAN_OP_OVER, part.get(), mask.get(), surface_.image(), 0, 0, 0, 0,
                             dest.left, dest.top, dest.width(), dest.height());
}

void PixmanPainter::text(const Pen& pen, const CFontDesc& font, UTF8StringPtr line,
                         const CPoint& baseline, bool antialias) {
    const PixelRect clip = clipTo(pen);
    if (clip.isEmpty())
        return;
    const ImageHandle source = solid(premultiplied(pen.fontColor, pen.alpha));
    if (!source)
        return;
    FontEngine::TextPlace place;
    place.x = pixel(baseline.x);
    place.baseline = pixel(baseline.y);
    // A letter may reach to the left of its place.
    place.rightmost = clip.right + pixel(font.getSize());
    place.scale = scale_;
    place.antialias = antialias;
    fonts_.drawText(surface_.image(), source.get(), font, line, place);

    const int32_t right = place.x + pixel(fonts_.drawnWidth(font, line, scale_, antialias));
    const auto drawLine = [&](const FontEngine::TextLine& textLine) {
        const int32_t top = place.baseline + textLine.top;
        fill(pen, std::array{PixelRect{place.x, top, right, top + textLine.thickness}},
             pen.fontColor);
    };
    if (font.getStyle() & kUnderlineFace)
        drawLine(fonts_.underline(font, scale_));
    if (font.getStyle() & kStrikethroughFace)
        drawLine(fonts_.strikethrough(font, scale_));
}

} // namespace VSTGUI
