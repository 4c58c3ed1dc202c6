#include "vstgui/lib/platform/common/utf8.h"

#include <algorithm>
#include <cstdint>

namespace VSTGUI {

namespace {

bool isSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

} // namespace

char32_t nextCharacter(const char*& text) {
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
        valid = continuesCharacter(text[index]); // false for the zero too, which ends the loop
        character = character << 6 | (byteAt(index) & 0x3FU);
    }
    constexpr char32_t kSmallest[] = {0x80, 0x800, 0x10000}; // that need 2, 3, 4 bytes
    if (!valid || character < kSmallest[length - 2] || character > 0x10FFFF ||
        isSurrogate(character)) {
        ++text;
        return kReplacementCharacter;
    }
    text += length;
    return character;
}

char32_t nextCharacter(const std::string& text, std::size_t& place) {
    const char* rest = text.c_str() + place;
    const char32_t character = nextCharacter(rest);
    place = static_cast<std::size_t>(rest - text.c_str());
    return character;
}

std::size_t countCharacters(const std::string& text) {
    const auto within = std::count_if(text.begin(), text.end(), continuesCharacter);
    return text.size() - static_cast<std::size_t>(within);
}

std::string utf8FromCharacter(char32_t character) {
    const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
    const auto tail = [&](int shift) { return byte(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80)
        return {byte(character)};
    if (character < 0x800)
        return {byte(0xC0 | (character >> 6)), tail(0)};
    if (isSurrogate(character) || character > 0x10FFFF)
        return {};
    if (character < 0x10000)
        return {byte(0xE0 | (character >> 12)), tail(6), tail(0)};
    return {byte(0xF0 | (character >> 18)), tail(12), tail(6), tail(0)};
}

char32_t smallLetter(char32_t character) {
    const auto within = [character](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    const bool isShifted = within('A', 'Z') || (within(0xC0, 0xDE) && character != 0xD7) ||
                           within(0x391, 0x3A9) || within(0x410, 0x42F);
    if (isShifted)
        return character + 0x20;
    return within(0x400, 0x40F) ? character + 0x50 : character;
}

} // namespace VSTGUI
