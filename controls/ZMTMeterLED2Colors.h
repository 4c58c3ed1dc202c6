#pragma once

#include "controls/Counted.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/controls/ccontrol.h"

namespace pedl {

/// A level lamp: its first colour fades in up to a value of 0.708 (-3 dB), its second one from
/// there to 1. Takes no events.
class ZMTMeterLED2Colors : public VSTGUI::CControl {
public:
    ZMTMeterLED2Colors(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                       VSTGUI::CBitmap* firstBitmap, VSTGUI::CBitmap* secondBitmap,
                       VSTGUI::CBitmap* offBitmap,
                       const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    void draw(VSTGUI::CDrawContext* context) override;

    Counted<VSTGUI::CBitmap> firstBitmap;  // nothing lights where one of
    Counted<VSTGUI::CBitmap> secondBitmap; // the two is null
    VSTGUI::CPoint offset;
    CLASS_METHODS(ZMTMeterLED2Colors, CControl)

protected:
    ~ZMTMeterLED2Colors() override = default;
};

} // namespace pedl
