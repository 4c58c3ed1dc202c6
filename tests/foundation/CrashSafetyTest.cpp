// What a stored value is when the process that writes it is killed, or a system call fails: the old
// one or the new one. strace does the killing and the failing, at each call of the writing in turn.

#include "foundation/platform/FileSettingsStore.h"
#include "foundation/platform/StandardErrorStream.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace pedl {
namespace {

using test::readText;
using test::TemporaryFolder;
using test::writeText;

const std::string kOld = "the old value";
const std::string kNew = "the new value, which is longer";
const std::string kLater = "a later one";
constexpr const char* kNameLetters = "abcdefghijklmnopqrstuvwxyz0123456789_"; // of a system call

/// One call of the writing: which, and the how many-eth of its name in the process.
struct SystemCall {
    std::string name;
    int ordinal;
};

class CrashSafety : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (std::system("strace -o /dev/null true 2>/dev/null") != 0)
            GTEST_SKIP() << "strace is missing or may not trace";
    }

    TemporaryFolder folder;
    TemporaryFolder aside;

    /// Stores a value in place of the old one while strace does something to a call; returns the
    /// writer's exit status, or -1 for one that was killed.
    int store(const std::string& injection, const std::string& text = kNew) {
        if (text == kNew)
            writeText(folder / "MemoA", kOld);
        const std::string command = "exec strace -o '" + aside / "calls" + "' " + GetParam() + ' ' +
                                    injection + " " PEDL_STORE_WRITER " '" + folder.path() +
                                    "' MemoA '" + text + "' 2>'" + aside / "lines" + "'";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string value() { return readText(folder / "MemoA"); }
    std::string lines() { return readText(aside / "lines"); }
    bool isValueAlone() { return folder.names() == std::vector<std::string>{"MemoA"}; }

    /// The calls of one undisturbed writing.
    std::vector<SystemCall> callsOfTheWriting() {
        EXPECT_EQ(store(""), 0);
        EXPECT_EQ(value(), kNew);
        std::ifstream log(aside / "calls");
        std::map<std::string, int> counts;
        std::vector<SystemCall> calls;
        bool isWriting = false;
        for (std::string line; std::getline(log, line);) {
            const std::string name = line.substr(0, line.find('('));
            const int ordinal = ++counts[name];
            if (line.find("mark of the") != std::string::npos)
                isWriting = line.find("begin") != std::string::npos;
            else if (isWriting && name.find_first_not_of(kNameLetters) == std::string::npos)
                calls.push_back({name, ordinal});
        }
        return calls;
    }
};

TEST_P(CrashSafety, BytesAreOnTheDiskBeforeTheirNameAndTheNameBeforeTheEnd) {
    std::string order;
    for (const SystemCall& call : callsOfTheWriting())
        if (call.name == "write" || call.name == "fsync" || call.name == "renameat")
            order += call.name + ' ';
    EXPECT_TRUE(order.ends_with("write fsync renameat fsync ")) << order;
}

TEST_P(CrashSafety, AProcessKilledAtAnyCallLeavesTheOldValueOrTheNew) {
    const std::vector<SystemCall> calls = callsOfTheWriting();
    ASSERT_GE(calls.size(), 12U) << "the marks were not found";
    for (const auto& [name, ordinal] : calls) {
        SCOPED_TRACE(name + ' ' + std::to_string(ordinal));
        EXPECT_NE(store("-e inject=" + name + ":signal=KILL:when=" + std::to_string(ordinal)), 0);
        EXPECT_TRUE(value() == kOld || value() == kNew) << value();
        EXPECT_EQ(store("", kLater), 0);
        EXPECT_EQ(value(), kLater);
        EXPECT_TRUE(isValueAlone()) << "what the killed process left was not removed";
    }
}

TEST_P(CrashSafety, AFailingCallLeavesTheOldValueAndSaysSoOrDoesNotMatter) {
    for (const auto& [name, ordinal] : callsOfTheWriting())
        for (const std::string error : {"ENOSPC", "EIO", "EDQUOT", "EROFS", "EMFILE", "EINTR"}) {
            SCOPED_TRACE(name + ' ' + std::to_string(ordinal) + ' ' + error);
            const int status =
                store("-e inject=" + name + ":error=" + error + ":when=" + std::to_string(ordinal));
            EXPECT_EQ(value(), status == 0 ? kNew : kOld);
            EXPECT_TRUE(status == 0 || lines().find("MemoA") != std::string::npos) << lines();
            EXPECT_TRUE(isValueAlone());
            EXPECT_TRUE(status == 0 || error != "EINTR") << "an interrupted call is made again";
        }
}

TEST_P(CrashSafety, AWriteThatTookLessThanItSaidIsNoticed) {
    EXPECT_NE(store("-e inject=write:retval=3:when=1"), 0);
    EXPECT_EQ(value(), kOld);
    EXPECT_TRUE(lines().ends_with("(written only in part)\n")) << lines();
    EXPECT_TRUE(isValueAlone());
    // A call that is always interrupted is given up.
    EXPECT_NE(store("-e inject=write:error=EINTR"), 0);
    EXPECT_EQ(value(), kOld);
}

// The second way is that of file systems without unnamed files, and of a sandbox without /proc.
INSTANTIATE_TEST_SUITE_P(Unnamed, CrashSafety, testing::Values(""));
INSTANTIATE_TEST_SUITE_P(Named, CrashSafety, testing::Values("-e inject=linkat:error=ENOENT"));

TEST(SharedSettings, EightProcessesReadWholeValuesWhileAllOfThemWrite) {
    constexpr int kProcesses = 8;
    constexpr int kTurns = 10000 / kProcesses;
    constexpr std::size_t kProgramBytes = 2001;
    const TemporaryFolder folder;
    for (int process = 0; process < kProcesses; ++process) {
        if (fork() != 0)
            continue;
        StandardErrorStream diagnostics;
        FileSettingsStore store(folder.path(), diagnostics);
        bool isWell = true;
        for (std::size_t turn = 0; turn < kTurns && isWell; ++turn) {
            // The writer's letter, as often as its turn says: a mixture shows.
            const auto letter = static_cast<std::byte>('A' + process);
            isWell = store.write(turn % 2 == 0 ? "MemoA" : "MemoB",
                                 std::vector<std::byte>(kProgramBytes + turn % 97, letter));
            const auto value = store.read(turn % 3 == 0 ? "MemoA" : "MemoB");
            isWell = isWell && (!value || (value->size() >= kProgramBytes &&
                                           std::ranges::count(*value, value->front()) ==
                                               static_cast<std::ptrdiff_t>(value->size())));
        }
        _exit(isWell ? 0 : 1);
    }
    for (int process = 0; process < kProcesses; ++process) {
        int status = 0;
        ASSERT_GT(wait(&status), 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"MemoA", "MemoB"}));
}

} // namespace
} // namespace pedl
