#include "foundation/text/Utf8.h"
#include "foundation/text/PrintableText.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace pedl {
namespace {

/// What a text is made of, and so what it is for a terminal.
struct Reading {
    std::string bytes;
    std::u32string characters; // with the replacement character for each byte that is none
    std::string printable;     // such bytes as Latin-1, controls as blanks
};

TEST(Utf8, BytesThatAreNoCharacterAreTakenOneByOneAndNoneBeyondTheEnd) {
    for (const Reading& row : {
             Reading{"A\xC3\xA9\xE2\x88\x9E\xF0\x9F\x8E\xB5", U"A\u00E9\u221E\U0001F3B5",
                     "A\xC3\xA9\xE2\x88\x9E\xF0\x9F\x8E\xB5"},
             Reading{"\x80\xBF", U"\uFFFD\uFFFD", " \xC2\xBF"},
             Reading{"\xC3", U"\uFFFD", "\xC3\x83"}, // cut off
             Reading{"\xF0\x9F\x8E", U"\uFFFD\uFFFD\uFFFD", "\xC3\xB0  "},
             Reading{"G\xE4nge", U"G\uFFFDnge", "G\xC3\xA4nge"}, // not continued
             Reading{"\xE0\x9F\xBF", U"\uFFFD\uFFFD\uFFFD",
                     "\xC3\xA0 \xC2\xBF"}, // longer than needed
             Reading{"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD", "\xC3\xAD\xC2\xA0 "}, // half of a pair
             Reading{"\xED\x9F\xBF\xEE\x80\x80", U"\uD7FF\uE000", "\xED\x9F\xBF\xEE\x80\x80"},
             Reading{"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD",
                     "\xC3\xB4   "}, // beyond the last
             Reading{"\xF4\x8F\xBF\xBF", U"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
             Reading{"a\x1B[2J\x7F\n\xC2\x9F\xC2\xA0 ", U"a\x1B[2J\x7F\n\x9F\xA0 ",
                     "a [2J   \xC2\xA0 "},
         }) {
        SCOPED_TRACE(testing::PrintToString(row.bytes));
        // An exact copy on the heap: the address sanitizer sees who reads beyond it.
        const auto copy = std::make_unique<char[]>(row.bytes.size());
        row.bytes.copy(copy.get(), row.bytes.size());
        std::string_view rest(copy.get(), row.bytes.size());
        EXPECT_EQ(printableText(rest), row.printable);
        std::u32string characters;
        while (!rest.empty())
            characters += takeAnyCharacter(rest);
        EXPECT_EQ(characters, row.characters);
        std::string again;
        for (const char32_t character : characters)
            again += utf8Of(character);
        const bool isText = characters.find(kReplacementCharacter) == std::u32string::npos;
        EXPECT_EQ(again == row.bytes, isText);
        EXPECT_EQ(countCharacters(again), characters.size());
    }
    EXPECT_EQ(utf8Of(0xD800) + utf8Of(0xDFFF) + utf8Of(0x110000), "");
    EXPECT_EQ(firstWholeCharacters("a\xE2\x88\x9E!", 3), "a");
    EXPECT_EQ(firstWholeCharacters("a\xE2\x88\x9E!", 4), "a\xE2\x88\x9E");
}

TEST(Utf8, CapitalsHaveSmallLettersWhateverTheLocale) {
    std::u32string small;
    for (const char32_t character : U"AZ[\u00C0\u00D7\u00DE\u0391\u0410\u042F\u0401")
        small += smallLetter(character);
    EXPECT_EQ(small, std::u32string(U"az[\u00E0\u00D7\u00FE\u03B1\u0430\u044F\u0451\0", 11));
}

} // namespace
} // namespace pedl
