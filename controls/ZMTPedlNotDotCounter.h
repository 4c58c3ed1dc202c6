#pragma once

#include "controls/ZMTPedlOneDotCounter.h"

namespace pedl {

/// The counter for whole numbers: without a point.
class ZMTPedlNotDotCounter : public ZMTPedlOneDotCounter {
public:
    ZMTPedlNotDotCounter(const VSTGUI::CRect& viewSize, VSTGUI::CControlListener* controlListener,
                         int32_t controlTag, float spacing, VSTGUI::CBitmap* strip,
                         int32_t numCells, int32_t lit, VSTGUI::CBitmap* overlay,
                         VSTGUI::CBitmap* background)
        : ZMTPedlOneDotCounter(viewSize, controlListener, controlTag, spacing, strip, numCells, 0,
                               lit, overlay, background, false) {}
    CLASS_METHODS(ZMTPedlNotDotCounter, ZMTPedlOneDotCounter)

protected:
    ~ZMTPedlNotDotCounter() override = default;
};

} // namespace pedl
