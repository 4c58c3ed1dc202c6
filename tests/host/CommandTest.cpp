// The command as a user runs it: what it says, what it returns, what it leaves behind.

#include "tests/host/SoundFiles.h"
#include "tests/support/ShellCommand.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <filesystem>

namespace pedl {
namespace {

class CommandTest : public testing::Test {
protected:
    CommandTest() {
        writeSound(folder_ / "in.wav", 2, 48000, 4800, [](long, int) { return 0.5; });
        writeSound(folder_ / "low.wav", 1, 22050, 100, [](long, int) { return 0.5; });
        writeSound(folder_ / "quad.wav", 4, 48000, 100, [](long, int) { return 0.5; });
        test::writeText(folder_ / "words.wav", "this is not audio");
        test::writeText(folder_ / "bad.csv", "0,0\n1,2\n");
    }

    test::Outcome run(const std::string& arguments, const std::string& limit = "ulimit -c 0") {
        return test::runInShell(folder_, limit + " && '" PEDL_COMMAND "' " + arguments +
                                             " --plugin '" PEDL_STUB_PLUGIN "'");
    }

    test::TemporaryFolder folder_;
};

TEST_F(CommandTest, ARenderEndsWithItsFiguresAndListsOfSettingsLeaveTheFilesAlone) {
    const test::Outcome outcome =
        run("render --set Gain=50 'Mode=mid band' --set 3=0.2 in.wav out.wav");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(outcome.error, "");
    EXPECT_TRUE(
        outcome.out.starts_with("out.wav: 0.10 s at 48000 Hz, peak -12.0 dBFS, rendered in"))
        << outcome.out;
    EXPECT_EQ(run("info --verbose").error, "stub: made\n");
    EXPECT_EQ(readSound(folder_ / "out.wav").frames(), 4800U);
}

TEST_F(CommandTest, WrongInputEndsWithOneClearLineAndLeavesNothing) {
    // clang-format off
    const std::vector<test::Refusal> refusals{
        {"render gone.wav out.wav", 1, "gone.wav: No such file or directory"},
        {"render . out.wav", 1, ".: is a folder"},
        {"render words.wav out.wav", 1, "words.wav: is not audio"},
        {"render low.wav out.wav", 1, "sample rate of 22050 Hz"},
        {"render quad.wav out.wav", 1, "has 4 channels"},
        {"render in.wav out.xyz", 1, "ending .xyz cannot be written"},
        {"render in.wav gone/out.wav", 1, "cannot be written in the folder gone"},
        {"render in.wav .", 1, ".: is a folder"},
        {"render in.wav /dev/full", 1, "/dev/full: cannot be written: No space left"},
        {"render in.wav out.wav --program sofd", 1, "nearest: 0 (Soft)"},
        {"render in.wav out.wav --set Gian=1", 1, "nearest: 0 (Gain)"},
        {"render in.wav out.wav --set Gain=200", 1, "\"200\" is outside 0.0 .. 100.0 %"},
        {"render in.wav out.wav --automate 0=gone.csv", 1, "gone.csv: No such file"},
        {"render in.wav out.wav --automate 0=bad.csv", 1, "bad.csv:2: the value is outside"},
        {"render in.wav out.wav --tempo nan", 2, "--tempo: \"nan\""},
        {"render in.wav out.wav --block 0", 2, "--block: \"0\""},
        {"render in.wav out.wav --block 2.5", 2, "--block: \"2.5\""},
        {"render in.wav out.wav --tail=-1", 2, "--tail: \"-1\""},
        {"render in.wav", 2, "OUT is required"},
        {"render in.wav out.wav more.wav", 2, "more.wav"},
        {"params --frob", 2, "--frob"},
    };
    // clang-format on
    expectRefusals(folder_, refusals, [this](const char* arguments) { return run(arguments); });
}

TEST_F(CommandTest, OutIsNotInUnderAnotherName) {
    std::filesystem::create_symlink("in.wav", folder_ / "soft.wav");
    std::filesystem::create_hard_link(folder_ / "in.wav", folder_ / "hard.wav");
    const std::string before = test::readText(folder_ / "in.wav");
    for (const char* out : {"in.wav", "soft.wav", "hard.wav"})
        EXPECT_NE(run(std::string("render in.wav ") + out).error.find("is the same file as"),
                  std::string::npos);
    EXPECT_EQ(test::readText(folder_ / "in.wav"), before);
}

TEST_F(CommandTest, AnInterruptedOrCrashedRenderLeavesWhatWasThere) {
    test::writeText(folder_ / "out.wav", "precious");
    const std::vector<std::string> before = folder_.names();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGSEGV}) {
        SCOPED_TRACE(signal);
#if defined(__SANITIZE_ADDRESS__)
        if (signal == SIGSEGV)
            continue; // the sanitizer's own handler reports it
#endif
        const char* const says = signal == SIGSEGV ? "crashed, most likely inside the plug-in"
                                                   : "interrupted; nothing was written";
        // The stub sends the signal to its own process in the third of many blocks.
        const std::string value = std::to_string(signal / 64.0);
        const test::Outcome outcome = run("render in.wav out.wav --block 64 --set 2=" + value);
        EXPECT_EQ(outcome.status, 128 + signal);
        EXPECT_NE(outcome.error.find(says), std::string::npos) << outcome.error;
        EXPECT_EQ(test::readText(folder_ / "out.wav"), "precious");
        EXPECT_EQ(folder_.names(), before);
    }
}

TEST_F(CommandTest, AFullDiskEndsTheRenderAndLeavesWhatWasThere) {
    test::writeText(folder_ / "out.wav", "precious");
    const std::vector<std::string> before = folder_.names();
    // A limit on the size of files stands for the disk: the write fails alike, for any user.
    const test::Outcome outcome = run("render in.wav out.wav", "ulimit -f 16");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("out.wav: cannot be written: File too large"), std::string::npos)
        << outcome.error;
    EXPECT_EQ(test::readText(folder_ / "out.wav"), "precious");
    EXPECT_EQ(folder_.names(), before);
}

TEST_F(CommandTest, ListingsShowWhatThePlugInTells) {
    EXPECT_EQ(run("programs").out, "slot  name\n   0  Soft\n   1  Loud\n");
    EXPECT_NE(
        run("params --program Loud").out.find("\n    0  Gain     Gain       1.0000  100.0 %\n"),
        std::string::npos);
    const auto list = nlohmann::json::parse(run("params --json").out);
    ASSERT_EQ(list.size(), 6U);
    EXPECT_EQ(list[3]["longName"], "Filter C");
    EXPECT_EQ(list[3]["display"], "20 Hz");
    const auto info = nlohmann::json::parse(run("info --json").out);
    EXPECT_EQ(info["uniqueId"], "Stub");
    EXPECT_EQ(info["flags"]["canDoubleReplacing"], true);
    EXPECT_EQ(info["programs"][1]["name"], "Loud");
}

} // namespace
} // namespace pedl
