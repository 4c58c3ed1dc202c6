#include "foundation/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace pedl {

namespace {

constexpr char32_t kFirstSurrogate = 0xD800;
constexpr char32_t kLastSurrogate = 0xDFFF;
constexpr char32_t kBehindUnicode = 0x110000;

constexpr unsigned kTailBits = 6; // of a byte that continues a character
constexpr unsigned kTailMask = (1U << kTailBits) - 1U;
constexpr unsigned kTailMark = 0x80;

/// Characters that take so many bytes, and what the first byte then begins with.
struct Length {
    unsigned bytes;
    unsigned lead;
    unsigned leadBits; // of the character, in the first byte
    char32_t first, behind;
};
// clang-format off
constexpr std::array<Length, 4> kLengths{{
    {1, 0x00, 7, 0x0,     0x80},
    {2, 0xC0, 5, 0x80,    0x800},
    {3, 0xE0, 4, 0x800,   0x10000},
    {4, 0xF0, 3, 0x10000, kBehindUnicode},
}};
// clang-format on

constexpr bool isSurrogate(char32_t character) {
    return character >= kFirstSurrogate && character <= kLastSurrogate;
}

/// The character of this length that the text begins with; nothing for any other beginning.
std::optional<char32_t> decoded(std::string_view text, const Length& length) noexcept {
    const unsigned lead = static_cast<std::uint8_t>(text.front());
    if (lead >> length.leadBits != length.lead >> length.leadBits || text.size() < length.bytes)
        return std::nullopt;
    char32_t character = lead & ((1U << length.leadBits) - 1U);
    for (const char tail : text.substr(1, length.bytes - 1)) {
        if (!continuesCharacter(tail))
            return std::nullopt;
        character = character << kTailBits | (static_cast<std::uint8_t>(tail) & kTailMask);
    }
    const bool isShortest = character >= length.first && character < length.behind;
    return isShortest && !isSurrogate(character) ? std::optional(character) : std::nullopt;
}

} // namespace

std::optional<char32_t> takeCharacter(std::string_view& text) noexcept {
    for (const Length& length : kLengths)
        if (const std::optional<char32_t> character = decoded(text, length)) {
            text.remove_prefix(length.bytes);
            return character;
        }
    text.remove_prefix(1);
    return std::nullopt;
}

char32_t takeAnyCharacter(std::string_view& text) noexcept {
    return takeCharacter(text).value_or(kReplacementCharacter);
}

std::size_t countCharacters(std::string_view text) noexcept {
    const auto within = std::count_if(text.begin(), text.end(), continuesCharacter);
    return text.size() - static_cast<std::size_t>(within);
}

std::string_view firstWholeCharacters(std::string_view text, std::size_t mostBytes) {
    if (text.size() <= mostBytes)
        return text;
    while (mostBytes > 0 && continuesCharacter(text[mostBytes]))
        --mostBytes;
    return text.substr(0, mostBytes);
}

std::string utf8Of(char32_t character) {
    std::string text;
    if (isSurrogate(character) || character >= kBehindUnicode)
        return text;
    const auto length = std::find_if(kLengths.begin(), kLengths.end(),
                                     [&](const Length& row) { return character < row.behind; });
    unsigned shift = (length->bytes - 1) * kTailBits;
    text += static_cast<char>(length->lead | character >> shift);
    while (shift > 0) {
        shift -= kTailBits;
        text += static_cast<char>(kTailMark | (character >> shift & kTailMask));
    }
    return text;
}

char32_t smallLetter(char32_t character) noexcept {
    const auto within = [character](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    constexpr char32_t kTimesSign = 0xD7; // amid the capitals of Latin-1
    const bool isShifted = within('A', 'Z') || (within(0xC0, 0xDE) && character != kTimesSign) ||
                           within(0x391, 0x3A9) || within(0x410, 0x42F);
    if (isShifted)
        return character + 0x20;
    return within(0x400, 0x40F) ? character + 0x50 : character;
}

} // namespace pedl
