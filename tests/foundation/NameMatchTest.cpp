#include "foundation/text/NameMatch.h"

#include "tests/support/Results.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

const std::vector<NamedItem> kParameters{
    {0, {"Gain", "Gain"}},        {1, {"LFOfreq", "LFOfreq"}},  {2, {"LfoFreq", "LFO-Frq"}},
    {3, {"FltrSlp", "Filter S"}}, {4, {"FltrSat", "Filter S"}}, {5, {"FltrCut", "Filter C"}},
    {6, {"Attack", "EFattack"}},  {7, {"AtkExtn", "EFattack"}}, {8, {"", ""}},
    {9, {"Dry", "Dry"}},          {10, {"DryStat", "DryStat"}}};

TEST(NameMatch, FindsWhatAUserWouldType) {
    using Row = std::pair<const char*, int>;
    for (const auto& [typed, index] : {
             Row{"gain", 0},             // case aside
             Row{"LfoFreq", 2},          // letter for letter, though another differs in case alone
             Row{"Filter Cutoff", 5},    // the plug-in's name is cut
             Row{"filter slope", 3},     // cut names are alike: the short name decides
             Row{"EFattackExtended", 7}, // both short names abbreviate it, the longer one counts
             Row{"Dry", 9},              // exact before longer ones that begin so
             Row{" drys", 10},           // an unmistakable beginning
             Row{"cutoff", 5},           // what the end of a short name abbreviates
             Row{"saturation", 4},
         })
        EXPECT_EQ(test::valueOf(findByName(typed, kParameters, "parameter")), index) << typed;
}

TEST(NameMatch, NamesWhatCouldBeMeantByAnUnclearOrUnknownName) {
    using Row = std::pair<const char*, const char*>;
    for (const auto& [typed, problem] : {
             Row{"Filter", "\"Filter\" can be more than one parameter: 3 (FltrSlp, Filter S), "
                           "4 (FltrSat, Filter S), 5 (FltrCut, Filter C)"},
             Row{"Gian", "no parameter is called \"Gian\"; nearest: 0 (Gain)"},
             Row{"DrxStat", "no parameter is called \"DrxStat\"; nearest: 10 (DryStat)"},
             Row{"Filtr Cutoff",
                 "no parameter is called \"Filtr Cutoff\"; nearest: 5 (FltrCut, Filter C), "
                 "3 (FltrSlp, Filter S), 4 (FltrSat, Filter S)"},
             Row{"Zzyzx Road", "no parameter is called \"Zzyzx Road\""},
             Row{"  ", "the name of a parameter is missing"},
         })
        EXPECT_EQ(test::problemOf(findByName(typed, kParameters, "parameter")), problem);
}

TEST(NameMatch, TheFirstOfSeveralWithTheSameNameIsTakenAndSaysSo) {
    const std::vector<std::string> names{"Default", "Init", "Init", "Init", "Initial"};
    const auto find = [&](const char* typed) {
        const FoundName found = test::valueOf(findNumbered(typed, names, "program", "the bank"));
        return std::pair(found.index, found.note);
    };
    EXPECT_EQ(find("init"), std::pair(1, std::string("3 programs are called \"Init\"; the first is "
                                                     "taken, 1")));
    EXPECT_EQ(find("initi"), std::pair(4, std::string()));
    EXPECT_EQ(find("2"), std::pair(2, std::string()));
}

TEST(NameMatch, OffersTheNearestWordOrNone) {
    const std::vector<std::string> words{"--program", "--preset", "--plugin", "--midi-settings"};
    using Row = std::pair<const char*, const char*>;
    for (const auto& [typed, near] : {Row{"--prgoram", "--program"}, Row{"--pluggin", "--plugin"},
                                      Row{"--midi-s", "--midi-settings"}, Row{"--loudness", ""}})
        EXPECT_EQ(nearestWord(typed, words), near);
}

} // namespace
} // namespace pedl
