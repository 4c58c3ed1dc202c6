#pragma once

#include "vstgui/lib/controls/ccontrol.h"

namespace VSTGUI {

/// Shows the picture of a strip that belongs to its value. Takes no events.
class CMovieBitmap : public CControl, public IMultiBitmapControl {
public:
    /// One picture has the height of the view.
    CMovieBitmap(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
                 const CPoint& offset = CPoint(0, 0));
    CMovieBitmap(const CRect& size, CControlListener* listener, int32_t tag, int32_t subPixmaps,
                 CCoord heightOfOneImage, CBitmap* background, const CPoint& offset = CPoint(0, 0));
    CMovieBitmap(const CMovieBitmap& movie);

    void draw(CDrawContext* context) override;
    bool sizeToFit() override;
    CLASS_METHODS(CMovieBitmap, CControl)

protected:
    ~CMovieBitmap() override;

    CPoint offset;
};

} // namespace VSTGUI
