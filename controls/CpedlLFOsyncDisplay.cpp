#include "controls/CpedlLFOsyncDisplay.h"

#include "parameters/NoteDivision.h"

#include <algorithm>
#include <cmath>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr double kStepPixels = 10.0; // of a drag, for one division
constexpr auto kLastDivision = static_cast<int32_t>(kNoteDivisions.size()) - 1;

/// Cells from the left.
enum Cell : int32_t { kFree, kNumerator, kFraction, kTens, kUnits };

void rememberIfThere(CBitmap* bitmap) {
    if (bitmap)
        bitmap->remember();
}

} // namespace

CpedlLFOsyncDisplay::CpedlLFOsyncDisplay(const CRect& viewSize, CControlListener* controlListener,
                                         int32_t controlTag, float spacing, CBitmap* strip,
                                         CBitmap* overlay, CBitmap* background)
    : BalancedEdits(viewSize, controlListener, controlTag, background), cellSpacing(spacing),
      digitStrip(strip), overlayBitmap(overlay) {
    rememberIfThere(digitStrip);
    rememberIfThere(overlayBitmap);
}

CpedlLFOsyncDisplay::CpedlLFOsyncDisplay(const CpedlLFOsyncDisplay& other)
    : BalancedEdits(other), cellSpacing(other.cellSpacing), digitStrip(other.digitStrip),
      overlayBitmap(other.overlayBitmap), blanked(other.blanked), showSlash(other.showSlash) {
    rememberIfThere(digitStrip);
    rememberIfThere(overlayBitmap);
}

CpedlLFOsyncDisplay::~CpedlLFOsyncDisplay() {
    if (digitStrip)
        digitStrip->forget();
    if (overlayBitmap)
        overlayBitmap->forget();
}

/// In single precision: in double most of the values index / 31 would show their neighbour.
int32_t CpedlLFOsyncDisplay::index() const {
    return std::clamp(static_cast<int32_t>(value * static_cast<float>(kLastDivision)), 0,
                      kLastDivision);
}

void CpedlLFOsyncDisplay::draw(CDrawContext* context) {
    const DigitCells cells{digitStrip, cellSpacing};
    CBitmap* const background = getBackground();
    if (background)
        background->draw(context, size);
    cells.draw(context, size, kFraction, showSlash ? DigitCells::kSlash : DigitCells::kBlank);
    if (!blanked) {
        const NoteDivision& rate = kNoteDivisions[static_cast<std::size_t>(index())];
        cells.draw(context, size, kNumerator, rate.numerator);
        if (rate.denominator >= 10)
            cells.draw(context, size, kTens, rate.denominator / 10);
        cells.draw(context, size, kUnits, rate.denominator % 10);
    } else if (!background) {
        for (const int32_t cell : {kFree, kNumerator, kTens, kUnits})
            cells.draw(context, size, cell, DigitCells::kBlank);
    }
    if (overlayBitmap)
        overlayBitmap->draw(context, size);
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
    const CBaseObjectGuard self(this);
    const float before = value;
    if (std::fabs(lastPoint.y - where.y) >= kStepPixels) {
        const int32_t by = where.y < lastPoint.y ? 1 : -1;
        lastPoint = where;
        step(by);
    }
    // The wheel or the effect may have moved it since it was last told.
    const bool isNews = value != lastSentValue || value != before;
    lastSentValue = value;
    if (isNews) {
        invalid();
        valueChanged();
    }
    return kMouseEventHandled;
}

CMouseEventResult CpedlLFOsyncDisplay::onMouseUp(CPoint& /*where*/,
                                                 const CButtonState& /*buttons*/) {
    endEdit();
    return kMouseEventHandled;
}

bool CpedlLFOsyncDisplay::onWheel(const CPoint& /*where*/, const float& distance,
                                  const CButtonState& /*buttons*/) {
    step(distance < 0.0F ? -1 : 1);
    if (listener == nullptr)
        return true;
    const CBaseObjectGuard self(this);
    invalid();
    beginEdit();
    valueChanged();
    endEdit();
    return true;
}

} // namespace pedl
