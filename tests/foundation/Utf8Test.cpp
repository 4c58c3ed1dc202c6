#include "foundation/text/Utf8.h"
#include "foundation/text/PrintableText.h"

#include "tests/support/GuardedBytes.h"

#include <gtest/gtest.h>

#include <string>

namespace pedl {
namespace {

/// What a text is made of, and so what it is for a terminal.
struct Row {
    std::string bytes;
    std::u32string characters; // with the replacement character for each byte that is none
    std::string printable;     // such bytes as Latin-1, controls as blanks
};

TEST(Utf8, BytesThatAreNoCharacterAreTakenOneByOneAndNoneBeyondTheEnd) {
    const std::string bad = "\xEF\xBF\xBD"; // the replacement character itself is a character
    for (const Row& row : {
             Row{"A\xC3\xA9\xE2\x88\x9E\xF0\x9F\x8E\xB5", U"A\u00E9\u221E\U0001F3B5",
                 "A\xC3\xA9\xE2\x88\x9E\xF0\x9F\x8E\xB5"},
             Row{bad, U"\uFFFD", bad}, Row{"\xFF!", U"\uFFFD!", "\xC3\xBF!"},
             Row{"\x80\xBF", U"\uFFFD\uFFFD", " \xC2\xBF"},
             Row{"\xC3", U"\uFFFD", "\xC3\x83"}, // cut off
             Row{"\xE2\x88", U"\uFFFD\uFFFD", "\xC3\xA2 "},
             Row{"\xF0\x9F\x8E", U"\uFFFD\uFFFD\uFFFD", "\xC3\xB0  "},
             Row{"G\xE4nge", U"G\uFFFDnge", "G\xC3\xA4nge"}, // not continued
             Row{"\xC0\x80", U"\uFFFD\uFFFD", "\xC3\x80 "},  // longer than needed
             Row{"\xE0\x9F\xBF", U"\uFFFD\uFFFD\uFFFD", "\xC3\xA0 \xC2\xBF"},
             Row{"\xE0\xA0\x80", U"\u0800", "\xE0\xA0\x80"},
             Row{"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD", "\xC3\xAD\xC2\xA0 "}, // half of a pair
             Row{"\xED\x9F\xBF\xEE\x80\x80", U"\uD7FF\uE000", "\xED\x9F\xBF\xEE\x80\x80"},
             Row{"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD", "\xC3\xB4   "}, // beyond the last
             Row{"\xF4\x8F\xBF\xBF", U"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
             Row{"a\x1B[2J\x7F\n ", U"a\x1B[2J\x7F\n ", "a [2J   "},
             Row{"\xC2\x9F\xC2\xA0", U"\x9F\xA0", " \xC2\xA0"}, // the last control and what follows
         }) {
        SCOPED_TRACE(testing::PrintToString(row.bytes));
        test::GuardedBytes guarded(std::as_bytes(std::span(row.bytes)));
        std::string_view rest(reinterpret_cast<const char*>(guarded.whole().data()),
                              row.bytes.size());
        EXPECT_EQ(printableText(rest), row.printable);
        std::u32string characters;
        while (!rest.empty())
            characters += takeAnyCharacter(rest);
        EXPECT_EQ(characters, row.characters);
        std::string again;
        for (const char32_t character : characters)
            again += utf8Of(character);
        const bool isText = characters.find(kReplacementCharacter) == std::u32string::npos;
        EXPECT_EQ(again == row.bytes, isText || row.bytes == bad);
        EXPECT_EQ(countCharacters(again), characters.size());
    }
    EXPECT_EQ(utf8Of(0xD800) + utf8Of(0xDFFF) + utf8Of(0x110000), "");
    EXPECT_EQ(firstWholeCharacters("a\xE2\x88\x9E!", 3), "a");
    EXPECT_EQ(firstWholeCharacters("a\xE2\x88\x9E!", 4), "a\xE2\x88\x9E");
}

TEST(Utf8, CapitalsHaveSmallLettersWhateverTheLocale) {
    const std::u32string capitals = U"AZ[\u00C0\u00D7\u00DE\u0391\u0410\u042F\u0401 1\u00DF";
    const std::u32string letters = U"az[\u00E0\u00D7\u00FE\u03B1\u0430\u044F\u0451 1\u00DF";
    std::u32string small;
    for (const char32_t character : capitals)
        small += smallLetter(character);
    EXPECT_EQ(small, letters);
}

} // namespace
} // namespace pedl
