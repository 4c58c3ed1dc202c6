#include "vstgui/lib/platform/common/pixmanbitmap.h"

#include <atomic>
#include <cmath>

namespace VSTGUI {

namespace {

constinit std::atomic<ResourceLookup> lookup{nullptr};

/// A surface on a resource's pixels; null when there is none at that scale.
std::unique_ptr<PixmanSurface> surfaceOf(const CResourceDescription& resource, int32_t scale) {
    ResourceImage image;
    const ResourceLookup find = getResourceLookup();
    if (!find || !find(resource, scale, image))
        return nullptr;
    // Read alone: nothing draws on a resource, although a surface's type would let it.
    auto surface = std::make_unique<PixmanSurface>(
        const_cast<uint32_t*>(image.pixels), image.widthPixels, image.heightPixels,
        image.widthPixels * static_cast<int32_t>(sizeof(uint32_t)), scale);
    if (!surface->image())
        surface.reset();
    return surface;
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
    std::unique_ptr<PixmanSurface> single = surfaceOf(resource, 1);
    if (!single)
        return nullptr;
    std::unique_ptr<PixmanSurface> twofold = surfaceOf(resource, 2);
    // One that is not exactly twice as large would land on other places than the first.
    if (twofold && (twofold->widthPixels() != 2 * single->widthPixels() ||
                    twofold->heightPixels() != 2 * single->heightPixels()))
        twofold = nullptr;
    const CPoint size(single->widthPixels(), single->heightPixels());
    return new PixmanBitmap(size, std::move(single), std::move(twofold));
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

const PixmanSurface* PixmanBitmap::imageFor(double scale) const {
    // Above 1 the larger one: fine detail that is made smaller looks better than coarse one made
    // larger.
    return twofold_ && scale > 1.0 ? twofold_.get() : image_.get();
}

} // namespace VSTGUI
