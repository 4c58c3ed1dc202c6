#pragma once

#include <csignal>
#include <ctime>

namespace VSTGUI {

/// While it lives, writing to a server that is gone does not end the host.
///
/// The connection's library looks whether the server is there before it writes, but a server that
/// goes just then brings SIGPIPE, whose default is the end of the process. This holds it back for
/// the calling thread alone and takes away the one that came meanwhile; what the host set for the
/// process stays as it is. Nests.
class BrokenPipeGuard {
public:
    BrokenPipeGuard() {
        sigemptyset(&brokenPipe_);
        sigaddset(&brokenPipe_, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &brokenPipe_, &before_);
    }
    ~BrokenPipeGuard() {
        constexpr timespec kNow{0, 0};
        if (!wasPending_)
            sigtimedwait(&brokenPipe_, nullptr, &kNow);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    BrokenPipeGuard(const BrokenPipeGuard&) = delete;
    BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

private:
    sigset_t brokenPipe_;
    sigset_t before_;
    bool wasPending_;
};

} // namespace VSTGUI
