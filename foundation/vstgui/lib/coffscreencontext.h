#pragma once

#include "vstgui/lib/cdrawcontext.h"

namespace VSTGUI {

class CFrame;

/// Draws on a bitmap. Draw between `beginDraw` and `endDraw`.
class COffscreenContext : public CDrawContext {
public:
    /// With the frame's scale factor. Null when the frame has no window.
    static COffscreenContext* create(CFrame* frame, CCoord width, CCoord height);

    /// Draws the bitmap on `context`, its point `srcOffset` on the top left of `destRect`.
    void copyFrom(CDrawContext* context, CRect destRect, CPoint srcOffset = CPoint(0, 0));
    CCoord getWidth() const { return surfaceRect_.width(); }
    CCoord getHeight() const { return surfaceRect_.height(); }
    /// Owned by the context: who keeps it remembers it.
    CBitmap* getBitmap() const { return bitmap_; }

protected:
    COffscreenContext(CBitmap* bitmap); // takes over the reference
    ~COffscreenContext() override;

private:
    CBitmap* bitmap_;
};

} // namespace VSTGUI
