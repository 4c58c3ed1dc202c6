#pragma once

#include <atomic>
#include <memory>

#include "vstgui/lib/plainmutex.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

namespace VSTGUI {

/// Zeroed memory of which only what was written to takes place.
class SparsePixels {
public:
    SparsePixels(int32_t widthPixels, int32_t heightPixels);
    ~SparsePixels();
    SparsePixels(const SparsePixels&) = delete;
    SparsePixels& operator=(const SparsePixels&) = delete;

    uint32_t* data() const { return data_; } // null when there is no memory

private:
    std::size_t sizeBytes_;
    uint32_t* data_ = nullptr;
};

/// A packed picture, its frames unpacked as they are needed and kept.
///
/// Thread: any, several at a time.
class PackedPicture : private SparsePixels, public PixmanSurface {
public:
    PackedPicture(const ResourceImage& image, int32_t scale);

    void needRows(int32_t top, int32_t bottom) const override;

private:
    uint32_t* frameAt(int32_t frame) const;
    void unpack(int32_t frame) const;

    const ResourceImage packed_;
    const int32_t frameHeightPixels_;
    std::unique_ptr<std::atomic<bool>[]> isThere_; // by frame; set after its pixels
    mutable PlainMutex mutex_;                     // one unpacks at a time
};

} // namespace VSTGUI
