#pragma once

#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/crect.h"
#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

class CDrawContext;
class IPlatformBitmap;

/// Names a resource, by number or by text (which is not copied).
class CResourceDescription {
public:
    enum { kIntegerType, kStringType, kUnknownType };

    CResourceDescription() : type(kUnknownType) { u.name = nullptr; }
    CResourceDescription(int32_t id) : type(kIntegerType) { u.id = id; }
    CResourceDescription(UTF8StringPtr name) : type(kStringType) { u.name = name; }

    int32_t type;
    union {
        int32_t id;
        UTF8StringPtr name;
    } u;
};

/// A picture. It may carry a second image for scale factor 2; its size is always that of the first.
class CBitmap : public CBaseObject {
public:
    /// From the registered resources. When there is no such one the object exists all the same,
    /// 0 by 0 pixels, and `isLoaded` is false.
    CBitmap(const CResourceDescription& desc);
    /// Transparent.
    CBitmap(CCoord width, CCoord height);
    /// Takes a reference of its own.
    CBitmap(IPlatformBitmap* platformBitmap);
    ~CBitmap() override;

    /// Puts the picture's point `offset` on the top left of `rect`. Never scales, draws nothing
    /// outside `rect` or the picture.
    virtual void draw(CDrawContext* context, const CRect& rect, const CPoint& offset = CPoint(0, 0),
                      float alpha = 1.f);
    CCoord getWidth() const;
    CCoord getHeight() const;
    bool isLoaded() const { return platformBitmap_ != nullptr; }
    IPlatformBitmap* getPlatformBitmap() const { return platformBitmap_; }
    CLASS_METHODS_NOCOPY(CBitmap, CBaseObject)

private:
    IPlatformBitmap* platformBitmap_ = nullptr;
};

} // namespace VSTGUI
