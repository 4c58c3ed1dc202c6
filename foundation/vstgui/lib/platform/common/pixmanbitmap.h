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
    const PixmanSurface* imageFor(double scale) const override;
    PixmanSurface& surface() { return *image_; }

private:
    CPoint size_; // logical pixels
    std::unique_ptr<PixmanSurface> image_;
    std::unique_ptr<PixmanSurface> twofold_;
};

} // namespace VSTGUI
