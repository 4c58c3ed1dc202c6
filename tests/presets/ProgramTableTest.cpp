#include "presets/factory/ProgramTable.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

constexpr const char* kHead = "families soft | loud\nmaterials riff\n";
constexpr const char* kWords = "family soft\non riff\nfor guitar\nturn this\n";

std::string tableOf(const std::string& values) {
    return std::string(kHead) + "[0] One\n" + kWords + values + "\n[1-139] Others\n" + kWords;
}

TEST(ProgramTable, TakesDisplayTermsAndGivesASynchronisedProgramTheRateOfItsNote) {
    const Result<ProgramTable> table = readProgramTable(
        tableOf("kFilterReso = normalised 0.703031, kFilterPole = 12 dB, kLFOSyncMode = hostBPM\n"
                "kLFOSynchroRate = 1:8 ., kFilterCutoffFreq = 450 Hz"));
    ASSERT_TRUE(table.ok()) << table.problem().text;
    const auto& values = table.value().programs.front().record.normalised;
    EXPECT_EQ(values[kFilterReso], 0.703031F);
    EXPECT_NEAR(values[kFilterPole], 0.5F, 1e-6);
    EXPECT_NEAR(values[kFilterCutoffFreq], std::log10(450.0 / 20.0) / 3.0, 1e-4);
    const double threeSixteenthsAt120Hz = 1.0 / 0.375;
    EXPECT_NEAR(values[kLFOFreq], (threeSixteenthsAt120Hz - 0.01) / 14.99, 1e-6);
    EXPECT_EQ(values[kEnvThreshold], 0.5F) << "as Default";
}

TEST(ProgramTable, IsRefusedWithTheLineOfItsFault) {
    const auto problemOf = [](const std::string& text) {
        const Result<ProgramTable> table = readProgramTable(text);
        return table.ok() ? "taken" : table.problem().text;
    };
    const auto valueProblem = [&](const std::string& values) {
        return problemOf(tableOf("\n" + values)); // a line further down
    };
    for (const auto& [values, problem] : std::initializer_list<std::pair<const char*, const char*>>{
             {"kFilterRes = 5 %", "line 9: there is no parameter kFilterRes"},
             {"kFilterReso = 5 Hz", "line 9: kFilterReso: \"5 Hz\" wants the unit %"},
             {"kEnvAttack = 3000 ms", "line 9: kEnvAttack: \"3000\" is outside 1.0 .. 2000"},
             {"kLFOType = cos", "line 9: kLFOType: no value reads \"cos\""},
             {"kFilterReso = normalised 1.5", "line 9: kFilterReso: \"1.5\" is no number from 0"},
             {"kEnvThreshold = normalised 0.5", "line 9: kEnvThreshold is that of \"Default\""},
             {"kGain = 3.0 dB, kGain = 4.0 dB", "line 9: kGain is set twice"},
             {"family loud", "line 9: one line \"family\" a program"},
             {"turn", "line 9: one line \"turn\" a program"},
             {"kLFOSyncMode = hostBPM, kLFOSynchroRate = 1:64",
              "line 10: the note asks for a rate"},
             {"[1] One", "line 9: \"One\" is the name of slot 0"},
             {"[2] Two", "line 9: slot 1 is next"},
             {"[1] A name of 24 characters..", "line 9: a name has 1 to 23"},
             {"leaves kGain", "line 9: only kParam3"}})
        EXPECT_TRUE(valueProblem(values).starts_with(problem)) << valueProblem(values);
    EXPECT_EQ(problemOf(std::string(kHead) + "[0] One\nfamily hard\n"),
              "line 4: \"hard\" is not in the table's list");
    EXPECT_TRUE(
        problemOf(std::string(kHead) + "[0] One\n" + kWords).starts_with("line 8: the table"))
        << "slots are missing";
    EXPECT_TRUE(problemOf(std::string(kHead) + "[0] One\nfamily soft\n[1] Two\n")
                    .starts_with("line 5: \"One\" ends without"));
}

} // namespace
} // namespace pedl
