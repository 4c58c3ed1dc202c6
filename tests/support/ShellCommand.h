#pragma once

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace pedl::test {

/// How a command ended, as a shell tells it, and what it said.
struct Outcome {
    int status = 0;
    std::string out, error;
};

/// Runs a line in a shell that stands in `folder`: arguments are quoted as a user would.
inline Outcome runInShell(const TemporaryFolder& folder, const std::string& line) {
    const TemporaryFolder streams;
    const std::string out = streams / "out";
    const std::string error = streams / "error";
    const std::string whole =
        "cd '" + folder.path() + "' && " + line + " >'" + out + "' 2>'" + error + "'";
    const int status = std::system(whole.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), readText(out),
            readText(error)};
}

/// Arguments that must end in one clear line.
struct Refusal {
    const char* arguments;
    int status;
    const char* says;
};

/// Each ends with its status and one line on standard error, and leaves the folder as it was.
template <typename Run>
void expectRefusals(const TemporaryFolder& folder, const std::vector<Refusal>& refusals,
                    const Run& run) {
    const std::vector<std::string> before = folder.names();
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.arguments);
        const Outcome outcome = run(refusal.arguments);
        EXPECT_EQ(outcome.status, refusal.status);
        EXPECT_TRUE(outcome.error.starts_with("zmt-pedlfilter: ")) << outcome.error;
        EXPECT_EQ(outcome.error.find('\n'), outcome.error.size() - 1) << outcome.error;
        EXPECT_NE(outcome.error.find(refusal.says), std::string::npos) << outcome.error;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(folder.names(), before);
    }
}

} // namespace pedl::test
