#pragma once

#include "parameters/DisplayText.h"

namespace pedl {

// Numbers as parameter displays and the view's counters show them. None of these texts depends on
// the process's locale: a host may have set one with a decimal comma.

/// `value` with `decimals` (0..3) digits behind the point, within eight characters.
///
/// The value is rounded half up first; its digits are then cut, not rounded.
/// A value between -1 and 0 that was not rounded to -1 keeps its sign and reads "-0". Too large a
/// value gives the empty text.
[[nodiscard]] DisplayText numberText(float value, int decimals);

/// `value` with one digit behind the point, rounded to the nearest.
[[nodiscard]] DisplayText oneDecimalText(double value);

/// A linear factor as decibels: "-oo" at and below -120 dB; values that round to zero have no sign.
[[nodiscard]] DisplayText decibelText(double factor);

/// The same with "-oo" at and below `floorDb`.
[[nodiscard]] DisplayText decibelText(double factor, double floorDb);

} // namespace pedl
