#pragma once

#include <cstdint>

namespace VSTGUI {

/// What stands in the place of bytes that are no character.
constexpr char32_t kReplacementCharacter = 0xFFFD;

/// The character at `text`, which must not be at its end; moves `text` past it.
///
/// A byte that begins no whole, shortest, permitted sequence counts as a replacement character of
/// its own. The terminating zero is never passed.
inline char32_t nextCharacter(const char*& text) {
    const auto byteAt = [&](int index) { return static_cast<uint8_t>(text[index]); };
    const uint8_t first = byteAt(0);
    if (first < 0x80) {
        ++text;
        return first;
    }
    const int length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    char32_t character = first & (0xFFU >> (length + 1));
    bool valid = first >= 0xC2 && first <= 0xF4;
    for (int index = 1; valid && index < length; ++index) {
        valid = (byteAt(index) & 0xC0) == 0x80; // false for the zero too, which ends the loop
        character = character << 6 | (byteAt(index) & 0x3FU);
    }
    constexpr char32_t kSmallest[] = {0x80, 0x800, 0x10000}; // that need 2, 3, 4 bytes
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (!valid || character < kSmallest[length - 2] || character > 0x10FFFF || isSurrogate) {
        ++text;
        return kReplacementCharacter;
    }
    text += length;
    return character;
}

} // namespace VSTGUI
