#pragma once

#include <map>

#include "vstgui/lib/plainmutex.h"
#include "vstgui/lib/platform/common/packedpicture.h"

namespace VSTGUI {

/// The packed pictures of the process that were drawn, each once a scale for all editors.
///
/// One object, which lives as long as a surface does that pictures were drawn on: what was unpacked
/// goes with the last window, although an editor keeps bitmaps beyond it.
///
/// Thread: any, several at a time.
class PictureStore : public CBaseObject {
public:
    /// The process's store, with one more reference.
    static PictureStore* acquire();

    /// Null when there is no memory. Stays as long as the store.
    const PixmanSurface* pictureOf(const ResourceImage& image, int32_t scale);

    void forget() override;
    CLASS_METHODS_NOCOPY(PictureStore, CBaseObject)

private:
    PictureStore() = default;
    ~PictureStore() override { current_ = nullptr; }

    std::map<const void*, PackedPicture> pictures_; // by where they are packed

    /// Guards the store, its coming and its going.
    static PlainMutex mutex_;
    static PictureStore* current_;
};

} // namespace VSTGUI
