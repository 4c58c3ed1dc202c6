#pragma once

#include "controls/DigitDisplay.h"

#include <array>

namespace pedl {

/// A number of up to five digits, on a segment display, that is edited digit by digit: a drag of
/// 15 pixels or a notch of the wheel moves the digit under the mouse by one, with carry and borrow.
///
/// The owner sets range, `scaleMode`, `blanked` and `editable`. Digits, `dotCell` and `litCells`
/// count from the right, cell 0 being the least significant.
class ZMTPedlOneDotCounter : public DigitDisplay {
public:
    static constexpr int32_t kMostCells = 5;
    /// How the value becomes the number shown.
    enum ScaleMode : int32_t {
        kLinear,      // along the range
        kHundredfold, // 1 to 100
        kFrequency    // 20 Hz to 20 kHz
    };

    /// @param cellSpacing    pixels from cell to cell
    /// @param litCells       see `draw`
    /// @param overlayBitmap  drawn last, may be null
    /// @param background     drawn first, may be null
    /// @param showDot        one decimal place, and the point over `dotCell`
    ZMTPedlOneDotCounter(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                         float cellSpacing, VSTGUI::CBitmap* digitStrip, int32_t cellCount,
                         int32_t dotCell, int32_t litCells, VSTGUI::CBitmap* overlayBitmap,
                         VSTGUI::CBitmap* background, bool showDot);

    /// The numbers of value 0 and 1; corrected to what the cells can show.
    void setRange(float min, float max);
    void setDisplayedNumber(float number);
    /// A number outside the range becomes its nearer end, and is shown so.
    float displayedNumberToValue(float number);
    /// One step of a digit, counted from the right from 1; none beyond the range.
    void stepDigit(int32_t delta, int32_t digit);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    void setValue(float val) override;

    int32_t cellCount;
    std::array<int32_t, kMostCells> digits{};
    std::array<float, kMostCells> editDigits{}; // the working copy that steps change
    int32_t dotCell;
    int32_t litCells;
    bool showDot;
    float rangeMin = 20.0F;
    float rangeMax = 20000.0F;
    int32_t scaleMode = kLinear;
    bool editable = true;
    int32_t editedDigit = -1; // from the right from 1; none outside
    CLASS_METHODS(ZMTPedlOneDotCounter, CControl)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~ZMTPedlOneDotCounter() override = default;

private:
    [[nodiscard]] int32_t digitAt(const VSTGUI::CPoint& where) const;
    [[nodiscard]] float editedDigits() const;
    [[nodiscard]] float numberOf(float allDigits) const {
        return showDot ? allDigits / 10.0F : allDigits;
    }
    [[nodiscard]] bool canCarry(int32_t delta, std::size_t digit) const;
    void carry(int32_t delta, std::size_t digit);
    void drawFromRight(VSTGUI::CDrawContext* context, int32_t cell, int32_t frame) const;
};

} // namespace pedl
