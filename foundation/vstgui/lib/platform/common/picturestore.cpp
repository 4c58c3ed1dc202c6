#include "vstgui/lib/platform/common/picturestore.h"

namespace VSTGUI {

constinit PlainMutex PictureStore::mutex_;
constinit PictureStore* PictureStore::current_ = nullptr;

PictureStore* PictureStore::acquire() {
    const PlainLock lock(mutex_);
    if (current_)
        current_->remember();
    else
        current_ = new PictureStore;
    return current_;
}

/// Nobody may find the store while it goes.
void PictureStore::forget() {
    const PlainLock lock(mutex_);
    CBaseObject::forget();
}

const PixmanSurface* PictureStore::pictureOf(const ResourceImage& image, int32_t scale) {
    const PlainLock lock(mutex_);
    const PackedPicture& picture = pictures_.try_emplace(image.packed, image, scale).first->second;
    return picture.image() ? &picture : nullptr;
}

} // namespace VSTGUI
