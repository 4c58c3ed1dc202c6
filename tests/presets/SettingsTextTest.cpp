#include "presets/SettingsText.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>

namespace pedl {
namespace {

using namespace std::string_literals;
using test::bytesOf;
using test::textOf;

struct Row {
    std::string text;
    std::string bytes;
};

TEST(SettingsText, IsUtf16WithHalfATerminator) {
    for (const Row& row :
         {Row{"", "\0"s}, Row{"/a", "/\0a\0\0"s}, Row{"\u00e9\u20ac", "\xe9\0\xac\x20\0"s},
          Row{"\U0001F39B", "\x3c\xd8\x9b\xdf\0"s}, Row{"\U00010000", "\0\xd8\0\xdc\0"s}}) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(textOf(settingsTextBytes(row.text)), row.bytes);
        EXPECT_EQ(textOfSettings(bytesOf(row.bytes)), row.text);
    }
}

TEST(SettingsText, KeepsPathsThatAreNotUtf8) {
    // Latin-1, a cut character, an overlong one, an encoded surrogate, one beyond the last.
    for (const std::string& text : {"/caf\xe9/x"s, "/\xe2\x82"s, "\xc0\xaf"s, "\xed\xa0\x80"s,
                                    "\xf4\x90\x80\x80"s, "\x80\xff\xfe"s}) {
        const std::vector<std::byte> bytes = settingsTextBytes(text);
        EXPECT_EQ(bytes.size() % 2, 1U);
        EXPECT_EQ(textOfSettings(bytes), text);
    }
    EXPECT_EQ(textOf(settingsTextBytes("\xe9")), "\xe9\xdc\0"s);
}

TEST(SettingsText, IsReadWithAnyTerminatorAndEndsAtTheFirst) {
    for (const std::string& bytes : {"a\0b\0"s, "a\0b\0\0"s, "a\0b\0\0\0"s, "a\0b\0\0\0c\0"s})
        EXPECT_EQ(textOfSettings(bytesOf(bytes)), "ab") << bytes.size();
    EXPECT_EQ(textOfSettings({}), "");
    EXPECT_EQ(textOfSettings(bytesOf("a")), "");
}

TEST(SettingsText, ReplacesHalvesOfPairsThatStandForNoByte) {
    EXPECT_EQ(textOfSettings(bytesOf("\x3c\xd8"
                                     "a\0\0"s)),
              "\ufffda");
    EXPECT_EQ(textOfSettings(bytesOf("\x9b\xdf\0"s)), "\ufffd");
}

} // namespace
} // namespace pedl
