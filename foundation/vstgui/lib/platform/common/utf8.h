#pragma once

#include <cstddef>
#include <string>

namespace VSTGUI {

/// What stands in the place of bytes that are no character.
constexpr char32_t kReplacementCharacter = 0xFFFD;

/// The character at `text`, which must not be at its end; moves `text` past it.
///
/// A byte that begins no whole, shortest, permitted sequence counts as a replacement character of
/// its own. The terminating zero is never passed.
char32_t nextCharacter(const char*& text);

/// The same for the character at `place`, a byte offset below the text's size.
char32_t nextCharacter(const std::string& text, std::size_t& place);

/// Is it a byte of a character that began before it?
constexpr bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Number of characters, and so of bytes that begin one.
std::size_t countCharacters(const std::string& text);

/// `character` as UTF-8; empty for what is not a character.
std::string utf8FromCharacter(char32_t character);

/// The small letter of a capital one: Latin-1, Greek and Cyrillic, whatever the locale.
char32_t smallLetter(char32_t character);

} // namespace VSTGUI
