// The second net under the audio thread's calls: a seccomp filter on that thread which lets no
// system call pass. Each walk runs in a child process, because a thread under such a filter cannot
// even end: it spins until the main thread leaves the process.
//
// Of its nature it sees what reaches the kernel. Memory that the allocator has at hand and a lock
// that nobody holds stay in user space: those are the first net's.

#include "tests/endtoend/AudioThreadWalk.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <seccomp.h>
#include <signal.h>
#include <thread>
#include <unistd.h>

namespace pedl::test {

namespace {

constexpr int kNone = -1;

std::atomic<int> trappedCall{kNone};
std::atomic<bool> isWalkDone{false};

[[noreturn]] void spin() {
    for (;;)
        __builtin_ia32_pause();
}

// Never returns: the return from a signal handler is itself a system call.
void onTrap(int, siginfo_t* info, void*) {
    trappedCall = info->si_syscall;
    spin();
}

void audioThread(AudioThreadWalk& walk) {
    scmp_filter_ctx filter = seccomp_init(SCMP_ACT_TRAP);
    if (filter && seccomp_load(filter) == 0) { // never released: that might enter the kernel
        walk.run();
        isWalkDone = true;
    }
    spin();
}

/// Walks in a thread without system calls and leaves the process: 0 if none was tried.
[[noreturn]] void walkWithoutSystemCalls(const char* path) {
    using namespace std::chrono_literals;
    struct sigaction action {};
    action.sa_sigaction = onTrap;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGSYS, &action, nullptr);

    RecordingHost host;
    const PluginLibrary library(path);
    const RunningEffect effect(library, 48000.0F, 1024);
    AudioThreadWalk walk(effect.get(), host);

    std::thread(audioThread, std::ref(walk)).detach();
    for (auto waited = 0ms; waited < 120s && !isWalkDone && trappedCall == kNone; waited += 5ms)
        std::this_thread::sleep_for(5ms);
    if (isWalkDone)
        _exit(EXIT_SUCCESS);
    const int number = trappedCall; // none: the kernel takes no filter, or the walk takes too long
    const char* const name =
        number == kNone ? "none" : seccomp_syscall_resolve_num_arch(SCMP_ARCH_NATIVE, number);
    std::fprintf(stderr, "system call `%s` during %s (%d)\n", name, walk.call(), walk.detail());
    _exit(EXIT_FAILURE);
}

} // namespace

TEST(SystemCallTrap, CatchesNothingInTheAudioThreadsCalls) {
    EXPECT_EXIT(walkWithoutSystemCalls(PEDL_PLUGIN_PATH), testing::ExitedWithCode(0), "");
}

TEST(SystemCallTrap, CatchesAPluginThatAsksForMemory) {
    EXPECT_EXIT(walkWithoutSystemCalls(PEDL_MISBEHAVING_PLUGIN_PATH), testing::ExitedWithCode(1),
                "system call `mmap`");
}

} // namespace pedl::test
