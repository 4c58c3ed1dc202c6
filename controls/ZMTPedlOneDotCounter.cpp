#include "controls/ZMTPedlOneDotCounter.h"

#include "parameters/ValueLaws.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr double kStepPixels = 15.0; // of a drag, for one step of a digit
// The cut-off's law, in the precision of a control
constexpr auto kLeastFrequencyHz = static_cast<float>(laws::kLowestCutoffHz);
constexpr auto kFrequencySpan = static_cast<float>(laws::kHighestCutoffHz / laws::kLowestCutoffHz);
constexpr float kTenths = 10.0F;
constexpr float kMostNumber = 1e9F; // no cell could show it, and it fits an int

float powerOfTen(int32_t exponent) {
    return std::pow(10.0F, static_cast<float>(exponent));
}

} // namespace

ZMTPedlOneDotCounter::ZMTPedlOneDotCounter(const CRect& viewSize, CControlListener* controlListener,
                                           int32_t controlTag, float spacing, CBitmap* strip,
                                           int32_t numCells, int32_t pointCell, int32_t lit,
                                           CBitmap* overlay, CBitmap* background, bool hasDot)
    : DigitDisplay(viewSize, controlListener, controlTag, spacing, strip, overlay, background),
      cellCount(std::clamp(numCells, 1, kMostCells)),
      dotCell(pointCell > cellCount ? 1 : pointCell), litCells(lit > cellCount / 2 ? 0 : lit),
      showDot(hasDot) {
    setWantsFocus(true);
}

// Numbers

void ZMTPedlOneDotCounter::setRange(float min, float max) {
    const float all = powerOfTen(cellCount) - 1.0F;
    const float most = showDot ? all / kTenths : all;
    const float least = showDot ? 0.1F : 1.0F;
    rangeMax = max < 0.0F || max > most ? most : max;
    rangeMin = min >= rangeMax || min < least ? least : min;
}

void ZMTPedlOneDotCounter::setValue(float val) {
    value = std::max(0.0F, std::min(val, 1.0F)); // NaN becomes 0
    switch (scaleMode) {
    case kHundredfold:
        setDisplayedNumber(std::pow(100.0F, value));
        break;
    case kFrequency:
        setDisplayedNumber(kLeastFrequencyHz * std::pow(kFrequencySpan, value));
        break;
    default:
        setDisplayedNumber(rangeMin + (rangeMax - rangeMin) * value);
        break;
    }
}

void ZMTPedlOneDotCounter::setDisplayedNumber(float number) {
    const float scaled = (showDot ? number * kTenths : number) + 0.5F;
    auto rest = static_cast<int32_t>(std::max(0.0F, std::min(scaled, kMostNumber))); // NaN: 0
    for (int32_t cell = cellCount - 1; cell >= 0; --cell) {
        const auto place = static_cast<int32_t>(powerOfTen(cell));
        const auto digit = static_cast<std::size_t>(cell);
        digits[digit] = rest / place;
        editDigits[digit] = static_cast<float>(digits[digit]);
        rest %= place;
    }
}

float ZMTPedlOneDotCounter::displayedNumberToValue(float number) {
    if (number < rangeMin || number > rangeMax) {
        number = number < rangeMin ? rangeMin : rangeMax;
        setDisplayedNumber(number);
    }
    switch (scaleMode) {
    case kHundredfold:
        return std::log10(number) * 0.5F;
    case kFrequency:
        return std::log10(number / kLeastFrequencyHz) / 3.0F;
    default:
        return (number - rangeMin) / (rangeMax - rangeMin);
    }
}

/// The digits as one whole number.
float ZMTPedlOneDotCounter::editedDigits() const {
    float number = 0.0F;
    for (int32_t cell = cellCount - 1; cell >= 0; --cell)
        number = number * 10.0F + editDigits[static_cast<std::size_t>(cell)];
    return number;
}

// Steps

/// Whether a higher digit can take what `digit` hands on.
bool ZMTPedlOneDotCounter::canCarry(int32_t delta, std::size_t digit) const {
    const auto higher = std::span(editDigits).first(static_cast<std::size_t>(cellCount));
    const float full = delta > 0 ? 9.0F : 0.0F;
    return std::ranges::any_of(higher.subspan(digit + 1),
                               [full](float each) { return each != full; });
}

void ZMTPedlOneDotCounter::carry(int32_t delta, std::size_t digit) {
    float& stepped = editDigits[digit];
    stepped += static_cast<float>(delta);
    if (stepped >= 0.0F && stepped <= 9.0F)
        return;
    const bool isCarried = canCarry(delta, digit);
    stepped = (delta > 0) == isCarried ? 0.0F : 9.0F; // round the end, or back to it
    if (isCarried)
        carry(delta, digit + 1);
}

void ZMTPedlOneDotCounter::stepDigit(int32_t delta, int32_t digit) {
    if (digit < 1 || digit > cellCount)
        return;
    const float after =
        numberOf(editedDigits() + static_cast<float>(delta) * powerOfTen(digit - 1));
    if ((delta > 0 && after > rangeMax) || (delta < 0 && after < rangeMin))
        return;
    carry(delta, static_cast<std::size_t>(digit - 1));
    for (std::size_t cell = 0; cell < static_cast<std::size_t>(cellCount); ++cell)
        digits[cell] = static_cast<int32_t>(editDigits[cell] + 0.5F);
}

// Drawing

void ZMTPedlOneDotCounter::drawFromRight(CDrawContext* context, int32_t cell, int32_t frame) const {
    drawCell(context, cellCount - 1 - cell, frame);
}

/// Unlit cells are `litCells` to the last, lit ones 0 to `cellCount` - `litCells` - 1: a lit one
/// goes over an unlit one, and the highest `litCells` stay dark.
void ZMTPedlOneDotCounter::draw(CDrawContext* context) {
    CBitmap* const background = getBackground();
    if (background)
        background->draw(context, size);
    if (blanked) {
        for (int32_t cell = 0; !background && cell < cellCount; ++cell)
            drawFromRight(context, cell, kBlank);
        setDirty(false);
        return;
    }
    for (int32_t cell = litCells; litCells != 0 && cell < cellCount; ++cell)
        drawFromRight(context, cell, kBlank);
    for (int32_t cell = 0; cell < cellCount - litCells; ++cell)
        drawFromRight(context, cell, digits[static_cast<std::size_t>(cell)]);
    if (showDot)
        drawFromRight(context, dotCell, kPoint);
    drawOverlay(context);
    setDirty(false);
}

// Mouse

/// From the right from 1, or -1 beside all that can be edited.
int32_t ZMTPedlOneDotCounter::digitAt(const CPoint& where) const {
    for (int32_t fromLeft = litCells; fromLeft < cellCount; ++fromLeft)
        if (isOverCell(where, fromLeft))
            return cellCount - fromLeft;
    return -1;
}

CMouseEventResult ZMTPedlOneDotCounter::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!editable)
        return kMouseEventHandled;
    if (!buttons.isLeftButton() || listener == nullptr)
        return kMouseEventNotHandled;
    editedDigit = -1;
    const int32_t digit = digitAt(where);
    if (digit < 0)
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this);
    beginEdit();
    editedDigit = digit;
    lastPoint = where;
    return onMouseMoved(where, buttons);
}

CMouseEventResult ZMTPedlOneDotCounter::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!editable || !buttons.isLeftButton() || editedDigit < 1) {
        endOpenEdits(); // its release was never seen
        return kMouseEventNotHandled;
    }
    if (const int32_t step = dragStep(where, kStepPixels))
        stepDigit(step, editedDigit);
    const float before = value;
    value = displayedNumberToValue(numberOf(editedDigits()));
    tellNews(before);
    return kMouseEventHandled;
}

CMouseEventResult ZMTPedlOneDotCounter::onMouseUp(CPoint& /*where*/,
                                                  const CButtonState& /*buttons*/) {
    if (!editable && editedDigit < 1)
        return kMouseEventHandled;
    editedDigit = 0;
    endEdit();
    return kMouseEventHandled;
}

bool ZMTPedlOneDotCounter::turnWheel(const CPoint& where, float distance,
                                     const CButtonState& /*buttons*/) {
    const int32_t digit = editable ? digitAt(where) : -1;
    if (digit < 0)
        return false;
    stepDigit(distance >= 0.0F ? 1 : -1, digit);
    value = std::clamp(displayedNumberToValue(numberOf(editedDigits())), 0.0F, 1.0F);
    tellInOneEdit();
    return true;
}

} // namespace pedl
