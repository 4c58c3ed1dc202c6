#include "vstgui/lib/platform/common/packedpicture.h"

#include <algorithm>
#include <sys/mman.h>

namespace VSTGUI {

namespace {

constexpr std::size_t kPixelBytes = sizeof(uint32_t);

} // namespace

SparsePixels::SparsePixels(int32_t widthPixels, int32_t heightPixels)
    : sizeBytes_(static_cast<std::size_t>(widthPixels) * static_cast<std::size_t>(heightPixels) *
                 kPixelBytes) {
    // Not from the heap: it would clear the memory by writing to it, and of a strip of a hundred
    // frames few are ever drawn.
    void* const pages = mmap(nullptr, sizeBytes_, PROT_READ | PROT_WRITE,
                             MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (pages != MAP_FAILED)
        data_ = static_cast<uint32_t*>(pages);
}

SparsePixels::~SparsePixels() {
    if (data_)
        munmap(data_, sizeBytes_);
}

PackedPicture::PackedPicture(const ResourceImage& image, int32_t scale)
    : SparsePixels(image.widthPixels, image.heightPixels),
      PixmanSurface(SparsePixels::data(), image.widthPixels, image.heightPixels,
                    image.widthPixels * static_cast<int32_t>(kPixelBytes), scale),
      packed_(image), frameHeightPixels_(image.heightPixels / image.frames),
      isThere_(std::make_unique<std::atomic<bool>[]>(static_cast<std::size_t>(image.frames))) {}

uint32_t* PackedPicture::frameAt(int32_t frame) const {
    return SparsePixels::data() +
           static_cast<std::ptrdiff_t>(frame) * frameHeightPixels_ * packed_.widthPixels;
}

void PackedPicture::needRows(int32_t top, int32_t bottom) const {
    const int32_t first = std::max(0, top / frameHeightPixels_);
    const int32_t last = std::min(packed_.frames - 1, (bottom - 1) / frameHeightPixels_);
    for (int32_t frame = first; frame <= last; ++frame) {
        if (isThere_[static_cast<std::size_t>(frame)].load(std::memory_order_acquire))
            continue;
        const PlainLock lock(mutex_);
        unpack(frame);
    }
}

/// With what it is a change of. The caller has the mutex.
void PackedPicture::unpack(int32_t frame) const {
    std::atomic<bool>& isThere = isThere_[static_cast<std::size_t>(frame)];
    if (isThere.load(std::memory_order_relaxed))
        return; // another thread was faster
    const int32_t basis = packed_.format->basisOf(packed_.packed, frame);
    if (basis >= 0)
        unpack(basis);
    packed_.format->unpack(packed_.packed, frame, frameAt(frame),
                           basis >= 0 ? frameAt(basis) : nullptr);
    isThere.store(true, std::memory_order_release);
}

} // namespace VSTGUI
