#include "foundation/platform/DesktopOpener.h"

#include "foundation/platform/ChildEnvironment.h"

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

namespace pedl {

namespace {

constexpr const char* kProgram = "xdg-open";

/// Where the program lies in PATH, empty where it does not.
std::string pathOf(const char* program) {
    const char* const searched = getenv("PATH");
    const std::string folders = searched ? searched : "/usr/local/bin:/usr/bin:/bin";
    for (std::size_t begin = 0; begin <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', begin), folders.size());
        const std::string folder = folders.substr(begin, end - begin);
        std::string path = (folder.empty() ? "." : folder) + "/" + program;
        if (access(path.c_str(), X_OK) == 0)
            return path;
        begin = end + 1;
    }
    return {};
}

/// In the child, where nothing may allocate or lock: other threads of the host may hold anything.
[[noreturn]] void becomeProgram(const char* path, char* const* arguments,
                                char* const* environment) {
    setsid();
    if (fork() != 0) // the one that goes on has no parent that would have to wait for it
        _exit(0);
    for (int signal = 1; signal < NSIG; ++signal)
        ::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = ::open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, standard);
    closefrom(STDERR_FILENO + 1);
    execve(path, arguments, environment);
    _exit(127);
}

} // namespace

bool DesktopOpener::open(const std::string& target) {
    const std::string path = pathOf(kProgram);
    if (path.empty())
        return false;
    std::vector<std::string> arguments{kProgram, target};
    std::vector<std::string> environment = environmentOfChild();
    const std::vector<char*> argumentPointers = pointersTo(arguments);
    const std::vector<char*> environmentPointers = pointersTo(environment);
    const pid_t between = fork();
    if (between == 0)
        becomeProgram(path.c_str(), argumentPointers.data(), environmentPointers.data());
    if (between < 0)
        return false;
    waitpid(between, nullptr, 0); // it only starts the program: gone at once
    return true;
}

} // namespace pedl
