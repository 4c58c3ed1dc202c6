#include "foundation/platform/DesktopOpener.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace pedl {
namespace {

/// The environment as it was, when the test is over.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* const before = getenv(name))
            before_ = before;
        setenv(name, value.c_str(), 1);
    }
    ~Variable() { before_.empty() ? unsetenv(name_) : setenv(name_, before_.c_str(), 1); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::string before_;
};

TEST(DesktopOpener, StartsTheDesktopsProgramAndLeavesNothingBehind) {
    const test::TemporaryFolder folder;
    const std::string said = folder.path() + "/said", program = folder.path() + "/xdg-open";
    std::ofstream(program) << "#!/bin/sh\n"
                           << "echo \"$1 $# [$GTK_PATH] $(ls /proc/self/fd | wc -w)\" >'" << said
                           << ".part'\nmv '" << said << ".part' '" << said << "'\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const Variable path("PATH", folder.path() + ":" + getenv("PATH"));
    const Variable hostsOwn("GTK_PATH", "/opt/host/gtk");
    const std::ifstream hostsFile("/dev/null"); // and a file of the host's

    EXPECT_TRUE(DesktopOpener().open("/a b/$(touch x);manual.html"));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left to wait for";
    EXPECT_EQ(errno, ECHILD);
    for (int i = 0; i < 5000 && !std::filesystem::exists(said); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    std::string line;
    std::getline(std::ifstream(said), line);
    EXPECT_EQ(line, "/a b/$(touch x);manual.html 1 [] 4") << "in, out, errors, the listed folder";

    const Variable nowhere("PATH", "/nonexistent");
    EXPECT_FALSE(DesktopOpener().open("manual.html"));
}

} // namespace
} // namespace pedl
