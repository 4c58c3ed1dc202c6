#pragma once

#include "controls/Counted.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/controls/ccontrol.h"

namespace pedl {

/// A lamp that goes from its off picture (the background) to its on picture as the value does.
/// Takes no events.
class ZMTIndicatorLED : public VSTGUI::CControl {
public:
    ZMTIndicatorLED(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                    VSTGUI::CBitmap* onBitmap, VSTGUI::CBitmap* offBitmap,
                    const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    void draw(VSTGUI::CDrawContext* context) override;

    Counted<VSTGUI::CBitmap> onBitmap; // may be null
    VSTGUI::CPoint offset;
    CLASS_METHODS(ZMTIndicatorLED, CControl)

protected:
    ~ZMTIndicatorLED() override = default;
};

} // namespace pedl
