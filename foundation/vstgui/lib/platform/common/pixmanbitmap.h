#pragma once

#include <memory>

#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

namespace VSTGUI {

/// A bitmap whose images are surfaces. One with a single image may be drawn on.
class PixmanBitmap : public IPlatformBitmap {
public:
    PixmanBitmap(const CPoint& size, std::unique_ptr<PixmanSurface> image,
                 std::unique_ptr<PixmanSurface> twofold = nullptr);

    bool getSize(CPoint& size) const override;
    const PixmanSurface* imageFor(double scale, PictureStore& pictures) const override;
    PixmanSurface& surface() { return *image_; }

private:
    CPoint size_; // logical pixels
    std::unique_ptr<PixmanSurface> image_;
    std::unique_ptr<PixmanSurface> twofold_;
};

/// A bitmap of packed pictures: what is drawn of them is in the store, shared by all editors.
class PackedBitmap : public IPlatformBitmap {
public:
    /// @param twofold  for scale 2, or empty
    PackedBitmap(const ResourceImage& single, const ResourceImage& twofold);

    bool getSize(CPoint& size) const override;
    const PixmanSurface* imageFor(double scale, PictureStore& pictures) const override;

private:
    ResourceImage single_;
    ResourceImage twofold_;
};

} // namespace VSTGUI
