#include "presets/SettingsText.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>

namespace pedl {
namespace {

using namespace std::string_literals;
using test::bytesOf;
using test::textOf;

struct Pair {
    std::string text, bytes;
};

TEST(SettingsText, IsUtf16WithHalfATerminatorAndKeepsBytesThatAreNotUtf8) {
    for (const Pair& row :
         {Pair{"", "\0"s}, Pair{"/a", "/\0a\0\0"s}, Pair{"\u00e9\u20ac", "\xe9\0\xac\x20\0"s},
          Pair{"\U0001F39B", "\x3c\xd8\x9b\xdf\0"s}, Pair{"\U00010000", "\0\xd8\0\xdc\0"s},
          Pair{"\x80\xff", "\x80\xdc\xff\xdc\0"s}, Pair{"/\xe2\x82", "/\0\xe2\xdc\x82\xdc\0"s},
          Pair{"\xc0\xaf", "\xc0\xdc\xaf\xdc\0"s},             // an overlong one
          Pair{"\xed\xa0\x80", "\xed\xdc\xa0\xdc\x80\xdc\0"s}, // an encoded surrogate
          Pair{"\xf4\x90\x80\x80", "\xf4\xdc\x90\xdc\x80\xdc\x80\xdc\0"s}}) { // beyond the last
        SCOPED_TRACE(row.text);
        EXPECT_EQ(textOf(settingsTextBytes(row.text)), row.bytes);
        EXPECT_EQ(textOfSettings(bytesOf(row.bytes)), row.text);
    }
}

TEST(SettingsText, EndsAtAnyTerminatorAndReplacesHalvesOfPairsThatStandForNoByte) {
    for (const Pair& row :
         {Pair{"ab", "a\0b\0"s}, Pair{"ab", "a\0b\0\0\0"s}, Pair{"ab", "a\0b\0\0\0c\0"s},
          Pair{"", "a"}, Pair{"\ufffda", "\x3c\xd8\x61\0\0"s}, Pair{"\ufffd", "\x9b\xdf\0"s}})
        EXPECT_EQ(textOfSettings(bytesOf(row.bytes)), row.text) << row.bytes.size();
}

} // namespace
} // namespace pedl
