#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace pedl {

/// Characters of a parameter's name, and of a number; the interface promises room for as many and a
/// zero.
constexpr std::size_t kParameterTextLength = 8;

/// Characters of the longest text of a value, "abovethrs".
constexpr std::size_t kDisplayTextLength = 9;

/// A short text held by value; what does not fit into its nine characters is left out.
///
/// Thread: any, real time.
class DisplayText {
public:
    constexpr DisplayText() = default;
    constexpr DisplayText(std::string_view text) { append(text); }
    constexpr DisplayText(const char* text) { append(text); }

    constexpr void append(std::string_view text) {
        for (const char character : text)
            append(character);
    }

    constexpr void append(char character) {
        if (length_ < kDisplayTextLength)
            characters_[length_++] = character;
    }

    /// Appends an integer in decimal.
    void appendInteger(int number);

    [[nodiscard]] constexpr std::string_view view() const { return {characters_.data(), length_}; }

private:
    std::array<char, kDisplayTextLength> characters_{};
    std::size_t length_ = 0;
};

} // namespace pedl
