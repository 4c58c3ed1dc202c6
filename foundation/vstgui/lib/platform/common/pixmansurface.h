#pragma once

#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/crect.h"
#include "vstgui/lib/vstguibase.h"

union pixman_image;

namespace VSTGUI {

class FontEngine;
class PictureStore;

/// Pixels in memory that pixman draws on: premultiplied ARGB, native byte order.
///
/// Knows its scale, so that a drawing context on it turns logical pixels into its own.
class PixmanSurface {
public:
    /// Transparent. The size, logical pixels, goes to the nearest whole pixels: what is drawn up to
    /// its edge fills the surface.
    PixmanSurface(CCoord width, CCoord height, double pixelsPerUnit);
    /// On memory that someone else owns, a shared segment for instance.
    PixmanSurface(uint32_t* pixels, int32_t widthPixels, int32_t heightPixels, int32_t strideBytes,
                  double pixelsPerUnit);
    virtual ~PixmanSurface();

    PixmanSurface(const PixmanSurface&) = delete;
    PixmanSurface& operator=(const PixmanSurface&) = delete;

    int32_t widthPixels() const;
    int32_t heightPixels() const;
    int32_t strideBytes() const;
    double scale() const { return scale_; }
    uint32_t* pixels();
    const uint32_t* pixels() const;
    pixman_image* image() const { return image_; }
    /// Keeps the letters and pictures that were drawn, for as long as the surface lives: contexts
    /// come and go.
    void holdFonts();
    PictureStore& holdPictures();

    /// Said before rows are read, from `top` to before `bottom`: a packed picture unpacks them.
    virtual void needRows(int32_t /*top*/, int32_t /*bottom*/) const {}

    /// One pixel as it is stored; 0 outside.
    uint32_t pixelAt(int32_t x, int32_t y) const;

private:
    pixman_image* image_ = nullptr; // null when there is no memory or no size
    FontEngine* fonts_ = nullptr;
    PictureStore* pictures_ = nullptr;
    double scale_ = 1.0;
};

/// A context that draws on `surface`, which must outlive it. One reference, the caller's.
CDrawContext* createPixmanContext(PixmanSurface& surface);

/// A context with a transparent bitmap of its own.
COffscreenContext* createPixmanOffscreenContext(CCoord width, CCoord height, double pixelsPerUnit);

} // namespace VSTGUI
