#include "vstgui/lib/platform/common/picturestore.h"
#include "vstgui/lib/platform/common/pixmanbitmap.h"

#include <atomic>
#include <cmath>

namespace VSTGUI {

namespace {

constinit std::atomic<ResourceLookup> lookup{nullptr};

ResourceImage find(const CResourceDescription& resource, int32_t scale) {
    ResourceImage image;
    const ResourceLookup find = getResourceLookup();
    const bool isFound = find && find(resource, scale, image) && image.widthPixels > 0 &&
                         image.heightPixels > 0 && (image.pixels || image.packed);
    return isFound ? image : ResourceImage{};
}

/// A surface on a resource's pixels; null when it has none.
std::unique_ptr<PixmanSurface> surfaceOf(const ResourceImage& image, int32_t scale) {
    if (!image.pixels)
        return nullptr;
    // Read alone: nothing draws on a resource, although a surface's type would let it.
    auto surface = std::make_unique<PixmanSurface>(
        const_cast<uint32_t*>(image.pixels), image.widthPixels, image.heightPixels,
        image.widthPixels * static_cast<int32_t>(sizeof(uint32_t)), scale);
    if (!surface->image())
        surface.reset();
    return surface;
}

/// Above 1 the larger one: fine detail that is made smaller looks better than coarse one made
/// larger.
bool isTwofoldFor(double scale) {
    return scale > 1.0;
}

} // namespace

void setResourceLookup(ResourceLookup newLookup) {
    lookup.store(newLookup, std::memory_order_release);
}

ResourceLookup getResourceLookup() {
    return lookup.load(std::memory_order_acquire);
}

IPlatformBitmap* IPlatformBitmap::create(const CResourceDescription& resource) {
    const bool isNamed = resource.type == CResourceDescription::kIntegerType ||
                         (resource.type == CResourceDescription::kStringType && resource.u.name);
    if (!isNamed)
        return nullptr;
    const ResourceImage single = find(resource, 1);
    if (single.widthPixels == 0)
        return nullptr;
    ResourceImage twofold = find(resource, 2);
    // One that is not exactly twice as large would land on other places than the first.
    if (twofold.widthPixels != 2 * single.widthPixels ||
        twofold.heightPixels != 2 * single.heightPixels)
        twofold = {};
    if (single.packed)
        return new PackedBitmap(single, twofold);
    std::unique_ptr<PixmanSurface> surface = surfaceOf(single, 1);
    if (!surface)
        return nullptr;
    const CPoint size(single.widthPixels, single.heightPixels);
    return new PixmanBitmap(size, std::move(surface), surfaceOf(twofold, 2));
}

IPlatformBitmap* IPlatformBitmap::create(const CPoint& size, double scale) {
    auto surface = std::make_unique<PixmanSurface>(size.x, size.y, scale);
    return surface->image() ? new PixmanBitmap(size, std::move(surface)) : nullptr;
}

PixmanBitmap::PixmanBitmap(const CPoint& size, std::unique_ptr<PixmanSurface> image,
                           std::unique_ptr<PixmanSurface> twofold)
    : size_(size), image_(std::move(image)), twofold_(std::move(twofold)) {}

bool PixmanBitmap::getSize(CPoint& size) const {
    size = size_;
    return true;
}

const PixmanSurface* PixmanBitmap::imageFor(double scale, PictureStore& /*pictures*/) const {
    return twofold_ && isTwofoldFor(scale) ? twofold_.get() : image_.get();
}

PackedBitmap::PackedBitmap(const ResourceImage& single, const ResourceImage& twofold)
    : single_(single), twofold_(twofold) {}

bool PackedBitmap::getSize(CPoint& size) const {
    size = CPoint(single_.widthPixels, single_.heightPixels);
    return true;
}

const PixmanSurface* PackedBitmap::imageFor(double scale, PictureStore& pictures) const {
    return twofold_.packed && isTwofoldFor(scale) ? pictures.pictureOf(twofold_, 2)
                                                  : pictures.pictureOf(single_, 1);
}

} // namespace VSTGUI
