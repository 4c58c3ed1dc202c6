#include "controls/CpedlLFOsyncDisplay.h"

#include "parameters/NoteDivision.h"

#include <algorithm>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr double kStepPixels = 10.0; // of a drag, for one division
constexpr auto kLastDivision = static_cast<int32_t>(kNoteDivisions.size()) - 1;

/// Cells from the left.
enum Cell : int32_t { kFree, kNumerator, kFraction, kTens, kUnits };

} // namespace

CpedlLFOsyncDisplay::CpedlLFOsyncDisplay(const CRect& viewSize, CControlListener* controlListener,
                                         int32_t controlTag, float spacing, CBitmap* strip,
                                         CBitmap* overlay, CBitmap* background)
    : DigitDisplay(viewSize, controlListener, controlTag, spacing, strip, overlay, background) {}

/// In single precision: in double most of the values index / 31 would show their neighbour.
int32_t CpedlLFOsyncDisplay::index() const {
    return std::clamp(static_cast<int32_t>(value * static_cast<float>(kLastDivision)), 0,
                      kLastDivision);
}

void CpedlLFOsyncDisplay::draw(CDrawContext* context) {
    CBitmap* const background = getBackground();
    if (background)
        background->draw(context, size);
    drawCell(context, kFraction, showSlash ? kSlash : kBlank);
    if (!blanked) {
        const NoteDivision& rate = kNoteDivisions[static_cast<std::size_t>(index())];
        drawCell(context, kNumerator, rate.numerator);
        if (rate.denominator >= 10)
            drawCell(context, kTens, rate.denominator / 10);
        drawCell(context, kUnits, rate.denominator % 10);
    } else if (!background) {
        for (const int32_t cell : {kFree, kNumerator, kTens, kUnits})
            drawCell(context, cell, kBlank);
    }
    drawOverlay(context);
    setDirty(false);
}

void CpedlLFOsyncDisplay::step(int32_t by) {
    const auto moved =
        static_cast<int32_t>(value * static_cast<float>(kLastDivision) + static_cast<float>(by));
    value =
        static_cast<float>(std::clamp(moved, 0, kLastDivision)) / static_cast<float>(kLastDivision);
}

CMouseEventResult CpedlLFOsyncDisplay::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton() || listener == nullptr)
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    beginEdit();
    lastPoint = where;
    return onMouseMoved(where, buttons);
}

CMouseEventResult CpedlLFOsyncDisplay::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton()) {
        endOpenEdits(); // its release was never seen
        return kMouseEventNotHandled;
    }
    const float before = value;
    if (const int32_t by = dragStep(where, kStepPixels))
        step(by);
    tellNews(before);
    return kMouseEventHandled;
}

CMouseEventResult CpedlLFOsyncDisplay::onMouseUp(CPoint& /*where*/,
                                                 const CButtonState& /*buttons*/) {
    endEdit();
    return kMouseEventHandled;
}

bool CpedlLFOsyncDisplay::turnWheel(const CPoint& /*where*/, float distance,
                                    const CButtonState& /*buttons*/) {
    step(distance < 0.0F ? -1 : 1);
    tellInOneEdit();
    return true;
}

} // namespace pedl
