#include "vstgui/lib/platform/common/pixmansurface.h"

#include "vstgui/lib/platform/common/fontengine.h"
#include "vstgui/lib/platform/common/picturestore.h"

#include <cmath>
#include <pixman.h>

namespace VSTGUI {

namespace {

constexpr double kLargestSidePixels = 32000.0; // pixman's coordinates have 16 bits

/// 0 for what cannot be the side of an image.
int32_t sidePixels(CCoord length, double pixelsPerUnit) {
    const double pixels = std::floor(length * pixelsPerUnit + 0.5); // as the edges of what is drawn
    return pixels >= 1.0 && pixels <= kLargestSidePixels ? static_cast<int32_t>(pixels) : 0;
}

} // namespace

PixmanSurface::PixmanSurface(CCoord width, CCoord height, double pixelsPerUnit)
    : scale_(pixelsPerUnit) {
    const int32_t widthPixels = sidePixels(width, pixelsPerUnit);
    const int32_t heightPixels = sidePixels(height, pixelsPerUnit);
    if (widthPixels > 0 && heightPixels > 0)
        image_ = pixman_image_create_bits(PIXMAN_a8r8g8b8, widthPixels, heightPixels, nullptr, 0);
}

PixmanSurface::PixmanSurface(uint32_t* pixels, int32_t widthPixels, int32_t heightPixels,
                             int32_t strideBytes, double pixelsPerUnit)
    : scale_(pixelsPerUnit) {
    if (pixels && widthPixels > 0 && heightPixels > 0)
        image_ = pixman_image_create_bits(PIXMAN_a8r8g8b8, widthPixels, heightPixels, pixels,
                                          strideBytes);
}

PixmanSurface::~PixmanSurface() {
    if (image_)
        pixman_image_unref(image_);
    if (fonts_)
        fonts_->forget();
    if (pictures_)
        pictures_->forget();
}

int32_t PixmanSurface::widthPixels() const {
    return image_ ? pixman_image_get_width(image_) : 0;
}

int32_t PixmanSurface::heightPixels() const {
    return image_ ? pixman_image_get_height(image_) : 0;
}

int32_t PixmanSurface::strideBytes() const {
    return image_ ? pixman_image_get_stride(image_) : 0;
}

uint32_t* PixmanSurface::pixels() {
    return image_ ? pixman_image_get_data(image_) : nullptr;
}

const uint32_t* PixmanSurface::pixels() const {
    return image_ ? pixman_image_get_data(image_) : nullptr;
}

void PixmanSurface::holdFonts() {
    if (!fonts_)
        fonts_ = FontEngine::acquire();
}

PictureStore& PixmanSurface::holdPictures() {
    if (!pictures_)
        pictures_ = PictureStore::acquire();
    return *pictures_;
}

uint32_t PixmanSurface::pixelAt(int32_t x, int32_t y) const {
    if (x < 0 || y < 0 || x >= widthPixels() || y >= heightPixels())
        return 0;
    const auto pixelsPerRow = strideBytes() / static_cast<int32_t>(sizeof(uint32_t));
    return pixels()[static_cast<std::ptrdiff_t>(y) * pixelsPerRow + x];
}

} // namespace VSTGUI
