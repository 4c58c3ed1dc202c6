#pragma once

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"

namespace pedl {

// A strip is a bitmap whose frames stand one below the other, all of one height.

/// The nearest of `frames` frames to a value of 0 to 1; 0 for anything below.
/// In single precision: in double a value of 0.005F would miss the frame that it stands for.
inline int32_t frameOfValue(float value, int32_t frames) {
    const auto last = static_cast<float>(frames - 1);
    return value > 0.0F ? static_cast<int32_t>(last * value + 0.5F) : 0;
}

/// Draws frame `index` of a strip with its top left corner on that of `place`, nothing outside it.
inline void drawFrame(VSTGUI::CDrawContext* context, VSTGUI::CBitmap* strip,
                      const VSTGUI::CRect& place, int32_t index, VSTGUI::CCoord frameHeight,
                      float alpha = 1.0F) {
    if (strip != nullptr)
        strip->draw(context, place, VSTGUI::CPoint(0, index * frameHeight), alpha);
}

} // namespace pedl
