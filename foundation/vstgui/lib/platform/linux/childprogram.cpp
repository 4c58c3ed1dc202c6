#include "vstgui/lib/platform/linux/childprogram.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "foundation/platform/ChildEnvironment.h"
#include "vstgui/lib/plainmutex.h"

namespace VSTGUI {

namespace {

/// Longer than any answer; whoever writes more has gone wrong.
constexpr std::size_t kMaxOutputBytes = 1 << 20;
/// Taken at one look: a pipe holds no more, and a program that never stops cannot hold us.
constexpr std::size_t kBytesPerLook = 1 << 16;

/// How long a program may take to go after it was asked to, and after it was told to. Both
/// together pass unnoticed in the user interface.
constexpr double kAskedMs = 15;
constexpr double kToldMs = 20;
/// The same for all that are left when the library goes.
constexpr double kLibraryEndMs = 50;

/// A pipe of which no other child gets an end and whose ends are no standard files.
bool openPipe(std::array<int, 2>& ends) {
    std::array<int, 2> low{};
    if (pipe2(low.data(), O_CLOEXEC) != 0)
        return false;
    for (std::size_t index : {0U, 1U}) {
        ends[index] = fcntl(low[index], F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        close(low[index]);
    }
    if (ends[0] >= 0 && ends[1] >= 0 && fcntl(ends[0], F_SETFL, O_NONBLOCK) == 0)
        return true;
    for (const int end : ends)
        if (end >= 0)
            close(end);
    return false;
}

pid_t spawn(std::vector<std::string> arguments, int outputFile) {
    std::vector<std::string> environment =
        pedl::environmentOfChild({"GDK_BACKEND=x11", "QT_QPA_PLATFORM=xcb"}); // an X11 window's
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files, outputFile, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                              POSIX_SPAWN_SETPGROUP);

    pid_t process = 0;
    const int error =
        posix_spawnp(&process, arguments[0].c_str(), &files, &attributes,
                     pedl::pointersTo(arguments).data(), pedl::pointersTo(environment).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error == 0 ? process : 0;
}

enum class Life { Runs, Ended, Reaped };

/// Leaves an ended process as it is: as long as that is so, its number is no other's.
Life lifeOf(pid_t process) {
    siginfo_t info{};
    if (waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT) != 0)
        return Life::Reaped; // the host ignores its children's ends, or waits for all of them
    return info.si_pid == 0 ? Life::Runs : Life::Ended;
}

double nowMs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

Life lifeWithin(pid_t process, double limitMs) {
    Life life = lifeOf(process);
    for (const double end = nowMs() + limitMs; life == Life::Runs && nowMs() < end;) {
        constexpr timespec kOneMs{0, 1'000'000};
        nanosleep(&kOneMs, nullptr);
        life = lifeOf(process);
    }
    return life;
}

// Processes that did not go in time although they were told to: the system holds them back. They
// are reaped when they have gone, whichever editor's they were. Beyond so many at once they are
// left to the host's end.

constinit PlainMutex leaversMutex;
constinit std::array<pid_t, 16> leavers{}; // 0: a free place

void keepForLater(pid_t process) {
    const PlainLock lock(leaversMutex);
    const auto place = std::find(leavers.begin(), leavers.end(), 0);
    if (place != leavers.end())
        *place = process;
}

void reapLeaversWithin(double limitMs) {
    const PlainLock lock(leaversMutex);
    const double end = nowMs() + limitMs;
    for (pid_t& process : leavers) {
        if (process == 0 || lifeWithin(process, end - nowMs()) == Life::Runs)
            continue;
        waitpid(process, nullptr, WNOHANG);
        process = 0;
    }
}

[[gnu::destructor]] void reapAllAtLibraryEnd() {
    reapLeaversWithin(kLibraryEndMs);
}

void endGroup(pid_t process) {
    if (lifeOf(process) == Life::Reaped)
        return;
    kill(-process, SIGTERM);
    if (lifeWithin(process, kAskedMs) == Life::Reaped)
        return;
    kill(-process, SIGKILL); // whom it has started too: they may have stayed
    if (lifeWithin(process, kToldMs) == Life::Runs)
        keepForLater(process);
    else
        waitpid(process, nullptr, WNOHANG);
}

} // namespace

void ChildProgram::reapLate() {
    reapLeaversWithin(0);
}

std::unique_ptr<ChildProgram> ChildProgram::start(const std::vector<std::string>& arguments) {
    reapLate();
    std::array<int, 2> ends{};
    if (!openPipe(ends))
        return nullptr;
    const pid_t process = spawn(arguments, ends[1]);
    close(ends[1]);
    if (process == 0) {
        close(ends[0]);
        return nullptr;
    }
    return std::unique_ptr<ChildProgram>(new ChildProgram(process, ends[0]));
}

ChildProgram::~ChildProgram() {
    close(outputFile_);
    if (process_ != 0)
        endGroup(process_);
    reapLate();
}

bool ChildProgram::hasEnded() {
    if (process_ == 0)
        return true;
    int status = 0;
    const pid_t ended = waitpid(process_, &status, WNOHANG);
    readOutput(); // after the look at the process: an ended one has written all it had to
    if (output_.size() > kMaxOutputBytes)
        endGroup(process_);
    else if (ended == 0 || (ended < 0 && errno == EINTR))
        return false;
    else // where somebody else has reaped it, what it wrote must do
        succeeded_ = ended < 0 || (WIFEXITED(status) && WEXITSTATUS(status) == 0);
    process_ = 0;
    return true;
}

void ChildProgram::readOutput() {
    std::array<char, 4096> bytes;
    for (std::size_t taken = 0; taken < kBytesPerLook;) {
        const ssize_t count = read(outputFile_, bytes.data(), bytes.size());
        if (count <= 0) // nothing more now, or ever
            return;
        output_.append(bytes.data(), static_cast<std::size_t>(count));
        taken += static_cast<std::size_t>(count);
    }
}

} // namespace VSTGUI
