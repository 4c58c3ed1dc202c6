#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

namespace pedl {

/// A short text held by value, in place of a string where memory must not be asked for; what does
/// not fit into its `kLength` characters is left out.
///
/// Thread: any, real time.
template <std::size_t kLength> class FixedText {
public:
    constexpr FixedText() = default;
    constexpr FixedText(std::string_view text) { append(text); }
    constexpr FixedText(const char* text) { append(text); }

    constexpr void append(std::string_view text) {
        for (const char character : text)
            append(character);
    }

    constexpr void append(char character) {
        if (length_ < kLength)
            characters_[length_++] = character;
    }

    /// Appends an integer in decimal.
    void appendInteger(int number) { appendDigits(number); }

    /// Appends a number with so many decimals, the same in every locale, with a sign where a NaN
    /// has one.
    void appendFixed(double number, int decimals) {
        appendDigits(number, std::chars_format::fixed, decimals);
    }

    [[nodiscard]] constexpr std::string_view view() const { return {characters_.data(), length_}; }
    constexpr operator std::string_view() const { return view(); }

private:
    template <typename... Number> void appendDigits(Number... number) {
        std::array<char, 64> digits; // the longest float has 39 digits before its point
        const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number...);
        if (result.ec == std::errc())
            append({digits.data(), static_cast<std::size_t>(result.ptr - digits.data())});
    }

    std::array<char, kLength> characters_{};
    std::size_t length_ = 0;
};

} // namespace pedl
