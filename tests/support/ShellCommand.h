#pragma once

#include "tests/support/TemporaryFolder.h"

#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace pedl::test {

/// How a command ended, as a shell tells it, and what it said.
struct Outcome {
    int status = 0;
    std::string out, error;
};

/// Runs a line in a shell that stands in `folder`: arguments are quoted as a user would.
inline Outcome runInShell(const TemporaryFolder& folder, const std::string& line) {
    // Tests in the background, or under nohup, were started with these ignored.
    for (const int number : {SIGINT, SIGQUIT, SIGHUP})
        std::signal(number, SIG_DFL);
    const TemporaryFolder streams;
    const std::string whole = "cd '" + folder.path() + "' && " + line + " >'" + streams / "out" +
                              "' 2>'" + streams / "error" + "'";
    const int status = std::system(whole.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
            readText(streams / "out"), readText(streams / "error")};
}

} // namespace pedl::test
