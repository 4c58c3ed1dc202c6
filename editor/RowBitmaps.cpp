#include "editor/ControlBuilder.h"

namespace pedl {

using namespace VSTGUI;

RowBitmaps::RowBitmaps(const ControlRow& row) {
    for (std::size_t i = 0; i < bitmaps_.size() && row.bitmaps[i] != 0; ++i) {
        bitmaps_[i] = adopted(new CBitmap(CResourceDescription(row.bitmaps[i])));
        areLoaded_ = areLoaded_ && bitmaps_[i]->isLoaded();
    }
}

void writeParameterText(float /*value*/, char* text, void* userData, std::int32_t tag) {
    *text = '\0'; // what stands in the buffer would be a question for another value's text
    if (auto* const effect = static_cast<CPresetSystemEffect*>(userData))
        effect->getParameterDisplay(tag, text);
}

} // namespace pedl
