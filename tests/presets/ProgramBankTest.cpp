#include "presets/ProgramBank.h"

#include <gtest/gtest.h>
#include <string>

namespace pedl {
namespace {

TEST(ProgramName, IsCutAtTwentyThreeCharactersAndLeavesNothingOfALongerOne) {
    ProgramBank bank;
    for (const std::string text :
         {"Chopper in the Distance", "Chopper in the Distance!", "Cat", ""}) {
        bank.setName(7, text);
        const std::string stored = text.substr(0, 23);
        const ProgramName name = bank.name(7);
        EXPECT_EQ(std::string(name.begin(), name.end()),
                  stored + std::string(kProgramNameBytes - stored.size(), '\0'));
        EXPECT_EQ(nameText(name), stored);
    }
}

} // namespace
} // namespace pedl
