#pragma once

#include <span>

#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/cfont.h"
#include "vstgui/lib/crect.h"
#include "vstgui/lib/platform/common/coveragemask.h"

namespace VSTGUI {

class FontEngine;
class IPlatformBitmap;
class PixmanSurface;

/// Draws on a surface with pixman.
///
/// Takes logical pixels from the surface's corner. Edges of rectangles, bitmaps and lines that are
/// not antialiased go to the nearest whole pixel of the surface, so they are sharp at every scale
/// and neighbours that share an edge never leave a gap.
class PixmanPainter {
public:
    struct Pen {
        CColor fillColor, frameColor, fontColor;
        CCoord lineWidth = 1;
        CRect clip;
        bool antialias = false;
        float alpha = 1.0F; // multiplies every colour's
    };

    PixmanPainter(PixmanSurface& surface, FontEngine& fonts);
    ~PixmanPainter();
    PixmanPainter(const PixmanPainter&) = delete;
    PixmanPainter& operator=(const PixmanPainter&) = delete;

    double scale() const { return scale_; }

    void fillRect(const Pen& pen, const CRect& rect, const CColor& color);
    void frameRect(const Pen& pen, const CRect& rect);
    void clearRect(const Pen& pen, const CRect& rect);
    void line(const Pen& pen, const CPoint& from, const CPoint& to);
    void fillPolygon(const Pen& pen, std::span<const CPoint> corners);
    /// Up to the middle of the frame that is drawn next: nothing shows beyond or within it.
    void fillInsideFrame(const Pen& pen, std::span<const CPoint> corners);
    void framePolygon(const Pen& pen, std::span<const CPoint> corners);
    void bitmap(const Pen& pen, const IPlatformBitmap& bitmap, const CRect& dest,
                const CPoint& offset, float alpha);
    void text(const Pen& pen, const CFontDesc& font, UTF8StringPtr line, const CPoint& baseline,
              bool antialias);

private:
    int32_t pixel(CCoord coordinate) const;
    PixelRect pixels(const CRect& rect) const;
    int32_t penSidePixels(const Pen& pen) const;
    CPoint penCorner(const Pen& pen, const CPoint& point) const;
    CPoint penCentre(const Pen& pen, const CPoint& point) const;

    /// Sets the surface's clip; empty when nothing can be drawn.
    PixelRect clipTo(const Pen& pen);
    void fill(const Pen& pen, std::span<const PixelRect> rects, const CColor& color);
    void fillShape(const Pen& pen, std::span<const CPoint> corners);
    void paint(const Pen& pen, CoverageMask& mask, const CColor& color);
    void copy(const PixmanSurface& image, const PixelRect& dest, int32_t sourceX, int32_t sourceY,
              float alpha);
    void stretch(const PixmanSurface& image, const PixelRect& dest, const PixelRect& source,
                 float alpha);

    PixmanSurface& surface_;
    FontEngine& fonts_;
    const double scale_;
};

} // namespace VSTGUI
