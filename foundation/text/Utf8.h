#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pedl {

/// What stands in the place of bytes that are no character.
constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Takes the first character off a text that is not empty.
///
/// @return the character; nothing for a byte that begins no whole, shortest, permitted sequence:
///         it is taken off alone
std::optional<char32_t> takeCharacter(std::string_view& text) noexcept;

/// The same where something has to stand for every byte: the replacement character for one that is
/// none.
char32_t takeAnyCharacter(std::string_view& text) noexcept;

/// Is it a byte of a character that began before it?
[[nodiscard]] constexpr bool continuesCharacter(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Number of characters, and so of bytes that begin one.
[[nodiscard]] std::size_t countCharacters(std::string_view text) noexcept;

/// The first `mostBytes` bytes, less what is left of a character that does not fit whole.
[[nodiscard]] std::string_view firstWholeCharacters(std::string_view text, std::size_t mostBytes);

/// `character` as UTF-8; empty for what is not a character.
[[nodiscard]] std::string utf8Of(char32_t character);

/// Does a terminal or a line of text take it for a command? C0, delete and C1.
[[nodiscard]] constexpr bool isControl(char32_t character) noexcept {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

/// The small letter of a capital one: Latin-1, Greek and Cyrillic, whatever the locale.
[[nodiscard]] char32_t smallLetter(char32_t character) noexcept;

} // namespace pedl
