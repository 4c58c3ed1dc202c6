#pragma once

#include "controls/CPedlDelaySlider.h"

namespace pedl {

/// The horizontal slider along the dial: `minPos` counts from the view's own edge, it has two
/// overlays to choose from, and everything the user does with it is an edit of the host's.
class CpedlRadioSlider : public CPedlDelaySlider {
public:
    /// @param minPos  first and last place of the handle from the view's left edge, pixels; a
    ///                handle that would not fit travels the whole view instead
    CpedlRadioSlider(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                     int32_t minPos, int32_t maxPos, VSTGUI::CBitmap* handle,
                     VSTGUI::CBitmap* background, const VSTGUI::CPoint& offset);

    virtual void setSecondOverlay(VSTGUI::CBitmap* bitmap);
    virtual void setOverlaySelector(int32_t which); // 0 the first, else the second

    Counted<VSTGUI::CBitmap> secondOverlay;
    int32_t overlaySelector = 0;
    CLASS_METHODS(CpedlRadioSlider, CPedlDelaySlider)

protected:
    ~CpedlRadioSlider() override = default;
    [[nodiscard]] double firstPlace() const override { return minTmp; }
    [[nodiscard]] bool isInverted() const override { return false; }
    [[nodiscard]] VSTGUI::CBitmap* shownOverlay() const override;
    [[nodiscard]] bool hasEdits() const override { return true; }
};

} // namespace pedl
