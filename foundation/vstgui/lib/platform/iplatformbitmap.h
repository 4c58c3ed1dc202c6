#pragma once

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

class PictureStore;
class PixmanSurface;

/// The images of a bitmap, one a scale factor. One editor's; the pixels of a resource are shared.
class IPlatformBitmap : public CBaseObject {
public:
    /// From the registered resources; null when there is no such one.
    static IPlatformBitmap* create(const CResourceDescription& resource);
    /// Transparent. @param scale  image pixels per logical pixel
    static IPlatformBitmap* create(const CPoint& size, double scale = 1.0);

    virtual bool getSize(CPoint& size) const = 0; // logical pixels
    /// The image made for `scale`, else the one that comes nearest. Owned by the bitmap or by
    /// `pictures`, which unpacked it.
    virtual const PixmanSurface* imageFor(double /*scale*/, PictureStore& /*pictures*/) const {
        return nullptr;
    }
};

/// How the frames of packed pictures are unpacked. Called from any thread.
struct PackedFormat {
    /// The frame that `frame` is packed as a change of, -1 for none.
    int32_t (*basisOf)(const void* packed, int32_t frame);
    /// Fills a frame's rows, which are transparent so far.
    /// @param basis  those of the frame's basis, null when it has none
    void (*unpack)(const void* packed, int32_t frame, uint32_t* pixels, const uint32_t* basis);
};

/// Pixels of an embedded picture: premultiplied ARGB, native byte order, rows without a gap.
struct ResourceImage {
    const uint32_t* pixels = nullptr;
    int32_t widthPixels = 0;
    int32_t heightPixels = 0; // of all frames

    // Instead of `pixels`: a strip of frames, one below the other, each unpacked when it is first
    // drawn. Pictures with the same `packed` are one, and unpacked once.
    const void* packed = nullptr;
    const PackedFormat* format = nullptr;
    int32_t frames = 1;
};

/// Finds a picture for an integer scale, 1 or 2. What `image` points to stays valid and the same as
/// long as the lookup is registered. Called from the threads of all editors, at the same time too.
/// @return false when there is no such picture at that scale
using ResourceLookup = bool (*)(const CResourceDescription& resource, int32_t scale,
                                ResourceImage& image);

/// Null takes the lookup away. One for the process: the library's resources are the same for every
/// editor.
void setResourceLookup(ResourceLookup lookup);
ResourceLookup getResourceLookup();

} // namespace VSTGUI
