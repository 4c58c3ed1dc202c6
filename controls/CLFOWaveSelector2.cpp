#include "controls/CLFOWaveSelector2.h"

#include "controls/FilmStrip.h"
#include "controls/WheelNotch.h"

#include <algorithm>
#include <cmath>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kStepPixels = 16.0F; // a drag beyond this moves one waveform on
constexpr float kClickPixels = 3.0F; // a drag within this is still a click
constexpr int32_t kMostRows = 10;

} // namespace

CLFOWaveSelector2::CLFOWaveSelector2(const CRect& viewSize, const CRect& expandedSize,
                                     CControlListener* controlListener, int32_t controlTag,
                                     CBitmap* background, CBitmap* hover, CBitmap* selection,
                                     int32_t divisor, int32_t lastIndex)
    : BalancedEdits(viewSize, controlListener, controlTag, background), maxIndex(lastIndex),
      indexDivisor(std::max(divisor, 1)), expandedRect(expandedSize), normalRect(viewSize),
      hoverBitmap(hover), selectionBitmap(selection) {
    setWantsFocus(true); // so that the open list loses it
}

CRect CLFOWaveSelector2::row(int32_t index) const {
    return CRect(normalRect).offset(0, index * normalRect.height());
}

void CLFOWaveSelector2::draw(CDrawContext* context) {
    drawFrame(context, getBackground(), size, expanded ? 0 : currentIndex, getHeight());
    if (expanded) {
        drawFrame(context, hoverBitmap, row(hoverIndex), 0, 0.0);
        drawFrame(context, selectionBitmap, row(currentIndex), 0, 0.0);
    }
    setDirty(false);
}

/// The place where it is drawn and where it can be clicked.
void CLFOWaveSelector2::show(const CRect& area) {
    setViewSize(area, true);
    setMouseableArea(area);
    invalid();
}

void CLFOWaveSelector2::select(int32_t index) {
    currentIndex = std::clamp(index, 0, maxIndex);
    value = static_cast<float>(std::clamp(currentIndex, 0, indexDivisor)) /
            static_cast<float>(indexDivisor);
}

CMouseEventResult CLFOWaveSelector2::onMouseDown(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    if (expanded) {
        onMouseMoved(where, buttons); // the row under it
        chooseHoveredRow();
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    }
    if (buttons.isLeftButton()) {
        beginEdit();
        mouseDownX = static_cast<float>(where.x);
        mouseDownY = static_cast<float>(where.y);
        clickPending = true;
        return kMouseEventHandled;
    }
    if (buttons.isRightButton()) {
        hoverIndex = 0;
        expanded = true;
        show(expandedRect);
    }
    return kMouseEventNotHandled; // the open list too: its moves come as those of any view
}

void CLFOWaveSelector2::chooseHoveredRow() {
    currentIndex = hoverIndex;
    looseFocus();
    select(currentIndex);
    valueChanged();
    invalid();
}

CMouseEventResult CLFOWaveSelector2::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (expanded) {
        if (size.pointInside(where))
            findHoveredRow(where);
        return kMouseEventHandled;
    }
    if (!buttons.isLeftButton() || listener == nullptr) {
        endOpenEdits(); // its release was never seen
        return kMouseEventNotHandled;
    }
    const auto x = static_cast<float>(where.x);
    const auto y = static_cast<float>(where.y);
    const float way = (mouseDownX - x) - (mouseDownY - y); // to the left and downwards
    int32_t index = currentIndex;
    if (std::fabs(way) > kStepPixels) {
        index += way > 0.0F ? -1 : 1;
        mouseDownX = x;
        mouseDownY = y;
    }
    select(index);
    if (std::fabs(way) > kClickPixels)
        clickPending = false;
    const CBaseObjectGuard self(this);
    valueChanged();
    invalid();
    return kMouseEventHandled;
}

void CLFOWaveSelector2::findHoveredRow(const CPoint& where) {
    const double rowHeight = normalRect.height();
    for (int32_t i = 0; i < kMostRows; ++i) {
        const auto top = static_cast<int32_t>(expandedRect.top + i * rowHeight);
        const auto bottom = static_cast<int32_t>(expandedRect.top + (i + 1) * rowHeight);
        if (top <= where.y && where.y <= bottom) {
            hoverIndex = i;
            break;
        }
    }
    invalid();
}

CMouseEventResult CLFOWaveSelector2::onMouseUp(CPoint& where, const CButtonState& /*buttons*/) {
    const CBaseObjectGuard self(this);
    if (clickPending) {
        clickPending = false;
        const auto middle = static_cast<int32_t>(size.left + getWidth() * 0.5);
        const int32_t next = currentIndex + (where.x > middle ? 1 : -1);
        select(next > maxIndex ? 0 : next < 0 ? maxIndex : next);
        valueChanged();
        invalid();
    }
    endEdit();
    return kMouseEventHandled;
}

CMouseEventResult CLFOWaveSelector2::onMouseExited(CPoint& /*where*/,
                                                   const CButtonState& /*buttons*/) {
    setDirty();
    return kMouseEventHandled;
}

bool CLFOWaveSelector2::turnWheel(const CPoint& /*where*/, float distance,
                                  const CButtonState& /*buttons*/) {
    if (expanded) {
        looseFocus();
        return true;
    }
    const float before = value;
    if (distance > kSmallestNotch)
        select(currentIndex + 1);
    else if (distance < -kSmallestNotch)
        select(currentIndex - 1);
    if (value == before && !isDirty())
        return true;
    const CBaseObjectGuard self(this);
    valueChanged();
    invalid();
    return true;
}

void CLFOWaveSelector2::looseFocus() {
    if (!expanded)
        return;
    expanded = false;
    show(normalRect);
    if (CView* const parent = getParentView())
        parent->invalidRect(expandedRect);
}

/// Without the focus it hears of no loss: the window was inactive when it was opened.
bool CLFOWaveSelector2::removed(CView* parent) {
    const CBaseObjectGuard self(this);
    looseFocus();
    return BalancedEdits::removed(parent);
}

void CLFOWaveSelector2::setValue(float val) {
    const float inRange = std::max(0.0F, std::min(val, 1.0F)); // NaN becomes 0
    currentIndex = static_cast<int32_t>(inRange * static_cast<float>(indexDivisor));
    CControl::setValue(inRange);
    setDirty();
}

} // namespace pedl
