#include "presets/ValueRepair.h"

#include <array>
#include <charconv>

namespace pedl {

namespace {

constexpr int kDecimals = 6;

/// The same in every locale, and with a sign where a NaN has one.
std::string fixedText(float value) {
    std::array<char, 64> digits{}; // the longest float has 39 digits before its point
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   static_cast<double>(value), std::chars_format::fixed, kDecimals)
                         .ptr;
    return {digits.data(), end};
}

} // namespace

std::string programRepairText(std::int32_t parameter, float value, std::string_view place,
                              std::int32_t slot, std::string_view programName) {
    std::string text = "Invalid parameter " + std::to_string(parameter) + " value ";
    text += std::isnan(value) ? "NaN" : fixedText(value);
    text += ' ';
    text += place;
    text += ' ' + std::to_string(slot) + ' ';
    text += programName;
    return text;
}

std::string plainRepairText(std::int32_t parameter, float value, std::string_view place) {
    std::string text = "Invalid parameter ";
    text += std::isnan(value) ? "NaN" : std::to_string(parameter);
    text += " value " + fixedText(value) + ' ';
    text += place;
    return text;
}

} // namespace pedl
