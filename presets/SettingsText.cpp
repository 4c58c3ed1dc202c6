#include "presets/SettingsText.h"

#include <array>
#include <cstdint>
#include <optional>

namespace pedl {

namespace {

constexpr char32_t kFirstHighSurrogate = 0xD800;
constexpr char32_t kFirstLowSurrogate = 0xDC00;
constexpr char32_t kBehindSurrogates = 0xE000;
constexpr char32_t kFirstOfTwoUnits = 0x10000;
constexpr char32_t kBehindUnicode = 0x110000;
constexpr char32_t kReplacement = 0xFFFD;

constexpr unsigned kPayloadBits = 6;    // of a UTF-8 byte that continues a character
constexpr unsigned kSurrogateBits = 10; // of each unit of a pair

/// A byte that belongs to no character, as the surrogate that stands for it, and back.
constexpr char32_t strayByte(std::uint8_t byte) {
    return kFirstLowSurrogate + byte;
}
constexpr bool isStrayByte(char32_t character) {
    return character >= strayByte(0x80) && character <= strayByte(0xFF);
}

bool isSurrogate(char32_t character) {
    return character >= kFirstHighSurrogate && character < kBehindSurrogates;
}

/// Characters that take so many UTF-8 bytes, and what the first byte then begins with.
struct Utf8Length {
    unsigned bytes;
    std::uint8_t lead;
    char32_t first, behind;
};
// clang-format off
constexpr std::array<Utf8Length, 4> kLengths{{
    {1, 0x00, 0x0,              0x80},
    {2, 0xC0, 0x80,             0x800},
    {3, 0xE0, 0x800,            kFirstOfTwoUnits},
    {4, 0xF0, kFirstOfTwoUnits, kBehindUnicode},
}};
// clang-format on

/// The character of this length that the text begins with; nothing for any other beginning.
std::optional<char32_t> decoded(std::string_view text, const Utf8Length& length) {
    if (text.size() < length.bytes)
        return std::nullopt;
    const unsigned leadBits = length.bytes == 1 ? 7 : kPayloadBits + 1 - length.bytes;
    const auto lead = static_cast<std::uint8_t>(text.front());
    if (lead >> leadBits != length.lead >> leadBits)
        return std::nullopt;
    char32_t character = lead & ((1U << leadBits) - 1U);
    for (const char next : text.substr(1, length.bytes - 1)) {
        const auto byte = static_cast<std::uint8_t>(next);
        if (byte >> kPayloadBits != 0b10)
            return std::nullopt;
        character = character << kPayloadBits | (byte & 0x3FU);
    }
    const bool isShortest = character >= length.first && character < length.behind;
    return isShortest && !isSurrogate(character) ? std::optional(character) : std::nullopt;
}

/// The first character of a text that is not empty, taken off it.
char32_t takeCharacter(std::string_view& text) {
    for (const Utf8Length& length : kLengths)
        if (const std::optional<char32_t> character = decoded(text, length)) {
            text.remove_prefix(length.bytes);
            return *character;
        }
    const auto byte = static_cast<std::uint8_t>(text.front());
    text.remove_prefix(1);
    return strayByte(byte);
}

void append(std::string& text, char32_t character) {
    if (isStrayByte(character)) {
        text += static_cast<char>(character - strayByte(0));
        return;
    }
    if (isSurrogate(character))
        character = kReplacement;
    for (const Utf8Length& length : kLengths) {
        if (character >= length.behind)
            continue;
        unsigned shift = (length.bytes - 1) * kPayloadBits;
        text += static_cast<char>(length.lead | character >> shift);
        while (shift > 0) {
            shift -= kPayloadBits;
            text += static_cast<char>(0x80U | (character >> shift & 0x3FU));
        }
        return;
    }
}

void appendUnit(std::vector<std::byte>& bytes, char32_t unit) {
    bytes.push_back(static_cast<std::byte>(unit));
    bytes.push_back(static_cast<std::byte>(unit >> 8));
}

/// The unit at the front, taken off; 0 where fewer than two bytes are left.
char32_t takeUnit(std::span<const std::byte>& bytes) {
    if (bytes.size() < 2)
        return 0;
    const auto unit = std::to_integer<char32_t>(bytes[0]) | std::to_integer<char32_t>(bytes[1])
                                                                << 8U;
    bytes = bytes.subspan(2);
    return unit;
}

bool isHighSurrogate(char32_t unit) {
    return unit >= kFirstHighSurrogate && unit < kFirstLowSurrogate;
}
bool isLowSurrogate(char32_t unit) {
    return unit >= kFirstLowSurrogate && unit < kBehindSurrogates;
}

} // namespace

std::vector<std::byte> settingsTextBytes(std::string_view text) {
    std::vector<std::byte> bytes;
    while (!text.empty()) {
        const char32_t character = takeCharacter(text);
        if (character < kFirstOfTwoUnits) {
            appendUnit(bytes, character);
            continue;
        }
        const char32_t rest = character - kFirstOfTwoUnits;
        appendUnit(bytes, kFirstHighSurrogate | rest >> kSurrogateBits);
        appendUnit(bytes, kFirstLowSurrogate | (rest & ((1U << kSurrogateBits) - 1U)));
    }
    bytes.push_back(std::byte{0});
    return bytes;
}

std::string textOfSettings(std::span<const std::byte> bytes) {
    std::string text;
    while (const char32_t unit = takeUnit(bytes)) {
        std::span<const std::byte> behind = bytes;
        const char32_t next = isHighSurrogate(unit) ? takeUnit(behind) : 0;
        if (!isLowSurrogate(next)) {
            append(text, unit);
            continue;
        }
        bytes = behind;
        append(text, kFirstOfTwoUnits + ((unit - kFirstHighSurrogate) << kSurrogateBits) +
                         (next - kFirstLowSurrogate));
    }
    return text;
}

} // namespace pedl
