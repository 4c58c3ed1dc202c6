#include "controls/DigitDisplay.h"

#include "controls/FilmStrip.h"

#include <cmath>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr int32_t kStripFrames = 13;

} // namespace

DigitDisplay::DigitDisplay(const CRect& viewSize, CControlListener* controlListener,
                           int32_t controlTag, float spacing, CBitmap* strip, CBitmap* overlay,
                           CBitmap* background)
    : BalancedEdits(viewSize, controlListener, controlTag, background), cellSpacing(spacing),
      digitStrip(strip), overlayBitmap(overlay) {}

double DigitDisplay::cellLeft(int32_t fromLeft) const {
    return size.left + static_cast<int32_t>(static_cast<float>(fromLeft) * cellSpacing + 0.5F);
}

double DigitDisplay::cellHeight() const {
    return digitStrip ? digitStrip->getHeight() / kStripFrames : 0.0;
}

bool DigitDisplay::isOverCell(const CPoint& where, int32_t fromLeft) const {
    return where.x >= cellLeft(fromLeft) && where.x < cellLeft(fromLeft + 1) &&
           where.y > size.top && where.y < size.top + cellHeight();
}

void DigitDisplay::drawCell(CDrawContext* context, int32_t fromLeft, int32_t frame) const {
    if (!digitStrip)
        return;
    const CRect cell(CPoint(cellLeft(fromLeft), size.top),
                     CPoint(digitStrip->getWidth(), cellHeight()));
    drawFrame(context, digitStrip, cell, frame, cellHeight());
}

void DigitDisplay::drawOverlay(CDrawContext* context) {
    if (overlayBitmap)
        overlayBitmap->draw(context, size);
}

int32_t DigitDisplay::dragStep(const CPoint& where, double pixels) {
    if (std::fabs(lastPoint.y - where.y) < pixels)
        return 0;
    const int32_t step = where.y < lastPoint.y ? 1 : -1;
    lastPoint = where;
    return step;
}

void DigitDisplay::tellNews(float before) {
    const bool isNews = value != lastSentValue || value != before;
    lastSentValue = value;
    if (!isNews)
        return;
    const CBaseObjectGuard self(this);
    invalid();
    valueChanged();
}

void DigitDisplay::tellInOneEdit() {
    if (listener == nullptr)
        return;
    const CBaseObjectGuard self(this);
    invalid();
    beginEdit();
    valueChanged();
    endEdit();
}

} // namespace pedl
