#pragma once

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

class PixmanSurface;

/// The images of a bitmap, one a scale factor. One editor's; the pixels of a resource are shared.
class IPlatformBitmap : public CBaseObject {
public:
    /// From the registered resources; null when there is no such one.
    static IPlatformBitmap* create(const CResourceDescription& resource);
    /// Transparent. @param scale  image pixels per logical pixel
    static IPlatformBitmap* create(const CPoint& size, double scale = 1.0);

    virtual bool getSize(CPoint& size) const = 0; // logical pixels
    /// The image made for `scale`, else the one that comes nearest. Owned by the bitmap.
    virtual const PixmanSurface* imageFor(double /*scale*/) const { return nullptr; }
};

/// Pixels of an embedded picture: premultiplied ARGB, native byte order, rows without a gap.
struct ResourceImage {
    const uint32_t* pixels = nullptr;
    int32_t widthPixels = 0;
    int32_t heightPixels = 0;
};

/// Finds a picture for an integer scale, 1 or 2. The pixels stay valid and the same as long as the
/// lookup is registered; one that unpacks keeps what it unpacked. Called from the threads of all
/// editors, at the same time too.
/// @return false when there is no such picture at that scale
using ResourceLookup = bool (*)(const CResourceDescription& resource, int32_t scale,
                                ResourceImage& image);

/// Null takes the lookup away. One for the process: the library's resources are the same for every
/// editor.
void setResourceLookup(ResourceLookup lookup);
ResourceLookup getResourceLookup();

} // namespace VSTGUI
