// `convert` and `diff` as a user runs them: what they say, what they return, what they leave.

#include "convert/DocumentWriter.h"
#include "tests/convert/Documents.h"
#include "tests/support/ShellCommand.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

class FileCommandsTest : public testing::Test {
protected:
    FileCommandsTest() {
        const Document chunk = test::randomChunk(8);
        test::writeText(folder_ / "a.chunk", test::textOf(storedForm(chunk)));
        for (const auto& [name, kind] : {std::pair{"a.zmt", DocumentKind::Program},
                                         {"a.zmb", DocumentKind::Bank},
                                         {"a.zmm", DocumentKind::MidiSettings}})
            test::writeText(folder_ / name,
                            test::textOf(storedForm(converted(chunk, kind).value())));
        test::writeText(folder_ / "bad.json", "{");
        test::writeText(folder_ / "kept.zmb", "precious");
    }

    test::Outcome run(const std::string& arguments) {
        return test::runInShell(folder_, "'" PEDL_COMMAND "' " + arguments);
    }

    test::TemporaryFolder folder_;
};

TEST_F(FileCommandsTest, EveryKindGoesThroughTextAndBackWithoutADifference) {
    for (const std::string ending : {"zmt", "zmb", "zmm", "chunk"}) {
        ASSERT_EQ(run("convert a." + ending + " text.JSON").status, 0);
        const test::Outcome back = run("convert text.JSON back." + ending);
        EXPECT_EQ(back.status, 0);
        EXPECT_EQ(back.error, "");
        EXPECT_TRUE(back.out.starts_with("back." + ending + ": ")) << back.out;
        EXPECT_EQ(test::readText(folder_ / ("back." + ending)),
                  test::readText(folder_ / ("a." + ending)));
        EXPECT_EQ(run("diff text.JSON a." + ending).status, 0);
    }
    run("convert a.zmt text.json");
    EXPECT_EQ(run("convert a.zmt -").out, test::readText(folder_ / "text.json"));
}

TEST_F(FileCommandsTest, AProgramIsChosenByNameOrSlot) {
    test::writeText(folder_ / "f.chunk", test::textOf(storedForm(factoryDocument())));
    EXPECT_EQ(run("convert f.chunk p.zmt --program 'auto w'").status, 0);
    EXPECT_NE(run("convert p.zmt -").out.find("\"name\": \"Auto Wah\""), std::string::npos);
    EXPECT_EQ(run("convert f.chunk g.chunk --program 119").status, 0);
    const test::Outcome diff = run("diff f.chunk g.chunk");
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out, "current program: 0 \"Default\" -> 119 \"Manual HPF 24dB/oct\"\n");
}

TEST_F(FileCommandsTest, WhatCannotBeDoneIsOneLineAndLeavesEverythingAsItWas) {
    const std::vector<test::Refusal> refusals{
        {"convert gone.zmb kept.zmb", 1, "gone.zmb: No such file or directory"},
        {"convert bad.json kept.zmb", 1, "bad.json: line 1, column 2"},
        {"convert . kept.zmb", 1, ".: is not a file"},
        {"convert kept.zmb x.json", 1, "kept.zmb: is no program, bank, MIDI settings"},
        {"convert a.zmm kept.zmb", 1, "a.zmm: holds MIDI settings: there is no program"},
        {"convert a.zmb x.zmm", 1, "a.zmb: holds a bank: there are no MIDI links in it"},
        {"convert a.zmb x.wav", 1, "x.wav: the ending names no form"},
        {"convert a.zmb gone/x.zmb", 1, "gone/x.zmb: cannot be written: No such file"},
        {"convert a.zmb kept.zmb --program 140", 1, "there is no program 140"},
        {"convert a.zmt kept.zmb --program 0", 1, "a.zmt: holds a program: only banks"},
        {"convert a.zmb", 2, "OUT is required"},
        {"diff a.zmb gone.zmb", 2, "gone.zmb: No such file"},
        {"diff a.zmb a.zmm", 2, "nothing to compare"},
        {"diff a.zmb", 2, "B is required"},
    };
    expectRefusals(folder_, refusals, [this](const char* arguments) { return run(arguments); });
    EXPECT_EQ(test::readText(folder_ / "kept.zmb"), "precious");
}

TEST_F(FileCommandsTest, RepairsAreWarnedAboutAndLongListsCut) {
    std::string bank = test::readText(folder_ / "a.zmb");
    for (std::size_t slot = 0; slot < 30;
         ++slot) // the first value of each, 1.0 to -1.0 and the like
        bank[41 + 1960 * slot + 168 + 27] = '\xBF';
    test::writeText(folder_ / "damaged.zmb", bank);
    const test::Outcome outcome = run("convert damaged.zmb whole.json");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.error.find("warning: damaged.zmb: Invalid parameter 0 value -"),
              std::string::npos);
    EXPECT_NE(outcome.error.find("warning: damaged.zmb: and 10 more\n"), std::string::npos)
        << outcome.error;
    EXPECT_EQ(run("convert whole.json whole.json").error, "");
}

} // namespace
} // namespace pedl
