#include "vstgui/lib/platform/common/fontengine.h"
#include "vstgui/lib/platform/common/pixmanbitmap.h"
#include "vstgui/lib/platform/common/pixmanpainter.h"

namespace VSTGUI {

namespace {

CRect logicalBounds(const PixmanSurface& surface) {
    return CRect(0, 0, surface.widthPixels() / surface.scale(),
                 surface.heightPixels() / surface.scale());
}

/// Gives a kind of context the operations that draw.
template <typename Context> class DrawsWithPixman : public Context {
public:
    template <typename Argument>
    DrawsWithPixman(Argument&& argument, PixmanSurface& surface)
        : Context(std::forward<Argument>(argument)), painter_(surface, *this->fonts_) {}

    void lineTo(const CPoint& point) override {
        const CPoint end = point + this->state_.offset;
        painter_.line(here(), this->state_.pen, end);
        this->state_.pen = end;
    }

    void drawRect(const CRect& rect, const CDrawStyle style = kDrawStroked) override {
        if (style != kDrawStroked)
            painter_.fillRect(here(), moved(rect), this->state_.fillColor);
        if (style != kDrawFilled)
            painter_.frameRect(here(), moved(rect));
    }

    void drawPolygon(const CPoint* points, int32_t count,
                     const CDrawStyle style = kDrawStroked) override {
        if (!points || count < 2)
            return;
        std::vector<CPoint> corners(points, points + count);
        for (CPoint& corner : corners)
            corner += this->state_.offset;
        if (style == kDrawFilled)
            painter_.fillPolygon(here(), corners);
        else if (style == kDrawFilledAndStroked)
            painter_.fillInsideFrame(here(), corners);
        if (style != kDrawFilled)
            painter_.framePolygon(here(), corners);
    }

    void drawBitmap(CBitmap* bitmap, const CRect& dest, const CPoint& offset = CPoint(0, 0),
                    float alpha = 1.f) override {
        if (bitmap && bitmap->getPlatformBitmap())
            painter_.bitmap(here(), *bitmap->getPlatformBitmap(), moved(dest), offset, alpha);
    }

    void clearRect(const CRect& rect) override { painter_.clearRect(here(), moved(rect)); }

protected:
    void drawText(UTF8StringPtr text, const CPoint& baseline, bool antialias) override {
        painter_.text(here(), *this->state_.font, text, baseline + this->state_.offset, antialias);
    }

    CCoord capHeight() const override {
        return this->fonts_->capHeight(*this->state_.font, painter_.scale());
    }

    CCoord drawnWidth(UTF8StringPtr text, bool antialias) const override {
        return this->fonts_->drawnWidth(*this->state_.font, text, painter_.scale(), antialias);
    }

private:
    CRect moved(CRect rect) const {
        return rect.offset(this->state_.offset.x, this->state_.offset.y);
    }

    PixmanPainter::Pen here() const {
        const auto& state = this->state_;
        return {state.fillColor,  state.frameColor, state.fontColor,
                state.lineWidth,  state.clip,       state.drawMode == kAntiAliasing,
                state.globalAlpha};
    }

    PixmanPainter painter_;
};

class SurfaceContext : public CDrawContext {
protected:
    explicit SurfaceContext(const PixmanSurface& surface) : CDrawContext(logicalBounds(surface)) {}
};

/// A context whose bitmap is always a `PixmanBitmap`.
class BitmapContext : public COffscreenContext {
protected:
    explicit BitmapContext(CBitmap* bitmap) : COffscreenContext(bitmap) {}
};

} // namespace

CDrawContext* createPixmanContext(PixmanSurface& surface) {
    return new DrawsWithPixman<SurfaceContext>(surface, surface);
}

COffscreenContext* createPixmanOffscreenContext(CCoord width, CCoord height, double pixelsPerUnit) {
    const CPoint size(width, height);
    auto surface = std::make_unique<PixmanSurface>(width, height, pixelsPerUnit);
    PixmanSurface& target = *surface;
    auto* platformBitmap = new PixmanBitmap(size, std::move(surface));
    auto* bitmap = new CBitmap(platformBitmap);
    platformBitmap->forget(); // the bitmap holds it
    return new DrawsWithPixman<BitmapContext>(bitmap, target);
}

} // namespace VSTGUI
