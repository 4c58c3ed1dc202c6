#include "parameters/NumberText.h"

#include <cmath>

namespace pedl {

namespace {

/// A shade less than one half, so that 1.5 counts as half up although its product with a power of
/// ten came out slightly low.
constexpr double kRoundUpFraction = 0.49999;

/// Beyond these the integer part and its sign would not fit into eight characters.
constexpr double kLargestPositive = 99999999.0;
constexpr double kLargestNegative = 9999999.0;

/// The factor whose level counts as silence: -120 dB.
constexpr double kSilence = 0.000001;

/// Levels closer to 0 dB than this are shown as 0, so that no "-0.0" appears.
constexpr double kUnityBandDb = 0.1;

constexpr int powerOfTen(int exponent) {
    int power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

/// Moves `value` one unit of its last shown digit away from zero when the digits behind that one
/// are a half or more; cutting the digits then gives the rounded number.
///
/// In double precision, where the product with a power of ten is exact: 0.7 is a little less as a
/// float, and a product rounded to 7 would leave "0.6".
double preRounded(float value, int decimals) {
    const double scale = powerOfTen(decimals);
    const double scaled = static_cast<double>(value) * scale;
    const double fraction = scaled - std::trunc(scaled);
    if (fraction >= kRoundUpFraction)
        return (scaled + 1.0) / scale;
    if (fraction <= -kRoundUpFraction)
        return (scaled - 1.0) / scale;
    return static_cast<double>(value);
}

DisplayText decibelTextAbove(double factor, double threshold) {
    if (!(factor > threshold))
        return "-oo";
    const double levelDb = 20.0 * std::log10(factor);
    return oneDecimalText(std::abs(levelDb) < kUnityBandDb ? 0.0 : levelDb);
}

} // namespace

DisplayText numberText(float value, int decimals) {
    const double rounded = preRounded(value, decimals);
    const bool isNegative = rounded < 0.0;
    const double magnitude = std::abs(rounded);
    if (!(magnitude <= (isNegative ? kLargestNegative : kLargestPositive)))
        return {};
    DisplayText text;
    if (isNegative)
        text.append('-');
    const double whole = std::trunc(magnitude);
    text.appendInteger(static_cast<int>(whole));
    if (decimals > 0)
        text.append('.');
    double fraction = magnitude - whole;
    for (int i = 0; i < decimals; ++i) {
        const double digit = std::trunc(fraction * 10.0);
        text.append(static_cast<char>('0' + static_cast<int>(digit)));
        fraction = fraction * 10.0 - digit;
    }
    return text.view().substr(0, kParameterTextLength);
}

DisplayText oneDecimalText(double value) {
    DisplayText text;
    text.appendFixed(value, 1);
    return text;
}

DisplayText decibelText(double factor) {
    return decibelTextAbove(factor, kSilence);
}

DisplayText decibelText(double factor, double floorDb) {
    return decibelTextAbove(factor, std::pow(10.0, floorDb / 20.0));
}

} // namespace pedl
