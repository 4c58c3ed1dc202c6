#include "presets/SettingsText.h"

#include "foundation/text/Utf8.h"

#include <cstdint>
#include <optional>

namespace pedl {

namespace {

constexpr char32_t kFirstHighSurrogate = 0xD800;
constexpr char32_t kFirstLowSurrogate = 0xDC00;
constexpr char32_t kBehindSurrogates = 0xE000;
constexpr char32_t kFirstOfTwoUnits = 0x10000;

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

/// The first character of a text that is not empty, taken off it.
char32_t takeCharacterOrByte(std::string_view& text) {
    const auto byte = static_cast<std::uint8_t>(text.front());
    return takeCharacter(text).value_or(strayByte(byte));
}

void append(std::string& text, char32_t character) {
    if (isStrayByte(character))
        text += static_cast<char>(character - strayByte(0));
    else
        text += utf8Of(isSurrogate(character) ? kReplacementCharacter : character);
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
        const char32_t character = takeCharacterOrByte(text);
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
