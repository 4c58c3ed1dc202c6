// What a stored value is when the process that writes it is killed, or a system call fails: the old
// one or the new one. strace does the killing and the failing, at each call of the writing in turn.

#include "foundation/platform/FileSettingsStore.h"
#include "foundation/platform/StandardErrorStream.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <cctype>
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
        writeText(folder / "MemoA", kOld);
    }

    TemporaryFolder folder;
    TemporaryFolder aside;

    /// Stores a value; returns the writer's exit status, or -1 for one that was killed.
    int store(const std::string& text, const std::string& straceOptions) {
        const std::string command = "exec strace -o '" + aside / "calls" + "' " + GetParam() + ' ' +
                                    straceOptions + " " PEDL_STORE_WRITER " '" + folder.path() +
                                    "' MemoA '" + text + "' 2>'" + aside / "lines" + "'";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string value() { return readText(folder / "MemoA"); }
    std::string lines() { return readText(aside / "lines"); }
    bool isValueAlone() { return folder.names() == std::vector<std::string>{"MemoA"}; }

    /// The calls of one undisturbed writing.
    std::vector<SystemCall> callsOfTheWriting() {
        EXPECT_EQ(store(kNew, ""), 0);
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
            else if (isWriting && std::ranges::all_of(name, [](unsigned char letter) {
                         return std::isalnum(letter) || letter == '_';
                     }))
                calls.push_back({name, ordinal});
        }
        return calls;
    }
};

TEST_P(CrashSafety, AProcessKilledAtAnyCallLeavesTheOldValueOrTheNew) {
    const std::vector<SystemCall> calls = callsOfTheWriting();
    ASSERT_GE(calls.size(), 12U) << "the marks were not found";
    for (const SystemCall& call : calls) {
        SCOPED_TRACE(call.name + ' ' + std::to_string(call.ordinal));
        writeText(folder / "MemoA", kOld);
        EXPECT_NE(store(kNew, "-e inject=" + call.name +
                                  ":signal=KILL:when=" + std::to_string(call.ordinal)),
                  0);
        EXPECT_TRUE(value() == kOld || value() == kNew) << value();
        EXPECT_EQ(store(kLater, ""), 0);
        EXPECT_EQ(value(), kLater);
        EXPECT_TRUE(isValueAlone()) << "what the killed process left was not removed";
    }
}

TEST_P(CrashSafety, AFailingCallLeavesTheOldValueAndSaysSoOrDoesNotMatter) {
    for (const SystemCall& call : callsOfTheWriting())
        for (const char* error : {"ENOSPC", "EIO", "EDQUOT", "EROFS", "EMFILE", "EINTR"}) {
            SCOPED_TRACE(call.name + ' ' + std::to_string(call.ordinal) + ' ' + error);
            writeText(folder / "MemoA", kOld);
            const int status = store(kNew, "-e inject=" + call.name + ":error=" + error +
                                               ":when=" + std::to_string(call.ordinal));
            EXPECT_EQ(value(), status == 0 ? kNew : kOld);
            EXPECT_TRUE(status == 0 || lines().find("MemoA") != std::string::npos) << lines();
            EXPECT_TRUE(isValueAlone());
            EXPECT_TRUE(status == 0 || error != std::string("EINTR"))
                << "an interrupted call is made again";
        }
}

TEST_P(CrashSafety, ACallThatIsAlwaysInterruptedIsGivenUp) {
    for (const char* call : {"write", "fsync", "flock", "renameat"}) {
        SCOPED_TRACE(call);
        const int status = store(kNew, std::string("-e inject=") + call + ":error=EINTR");
        EXPECT_EQ(value(), status == 0 ? kNew : kOld);
        writeText(folder / "MemoA", kOld);
    }
}

TEST_P(CrashSafety, AWriteThatTookLessThanItSaidIsNoticed) {
    EXPECT_NE(store(kNew, "-e inject=write:retval=3:when=1"), 0);
    EXPECT_EQ(value(), kOld);
    EXPECT_NE(lines().find("MemoA"), std::string::npos);
    EXPECT_TRUE(isValueAlone());
}

// The second way is that of file systems without unnamed files, and of a sandbox without /proc.
INSTANTIATE_TEST_SUITE_P(Unnamed, CrashSafety, testing::Values(""));
INSTANTIATE_TEST_SUITE_P(Named, CrashSafety, testing::Values("-e inject=linkat:error=ENOENT"));

/// A value that shows whether it is whole: the writer's letter, as often as its turn says.
std::vector<std::byte> sample(int process, int turn) {
    constexpr std::size_t kProgramBytes = 2001;
    return {kProgramBytes + static_cast<std::size_t>(turn % 97),
            static_cast<std::byte>('A' + process)};
}

bool isSomeWholeWrite(const std::vector<std::byte>& value) {
    return value.size() >= 2001 && value.size() < 2001 + 97 &&
           std::ranges::count(value, value.front()) == static_cast<std::ptrdiff_t>(value.size());
}

TEST(SharedSettings, EightProcessesReadWholeValuesWhileAllOfThemWrite) {
    constexpr int kProcesses = 8;
    constexpr int kTurns = 10000 / kProcesses;
    const TemporaryFolder folder;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = fork();
        if (child == 0) {
            StandardErrorStream diagnostics;
            FileSettingsStore store(folder.path(), diagnostics);
            bool isWell = true;
            for (int turn = 0; turn < kTurns && isWell; ++turn) {
                const char* const written = turn % 2 == 0 ? "MemoA" : "MemoB";
                const char* const read = turn % 3 == 0 ? "MemoA" : "MemoB";
                isWell = store.write(written, sample(process, turn));
                const auto value = store.read(read);
                isWell = isWell && (!value || isSomeWholeWrite(*value));
            }
            _exit(isWell ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"MemoA", "MemoB"}));
}

} // namespace
} // namespace pedl
