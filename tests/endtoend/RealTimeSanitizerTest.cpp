// The first of two nets under the audio thread's calls: clang's real-time sanitizer runtime. Its
// interceptors for the C library's blocking functions are exported by this program, hence also
// reached from the libraries it opens. The runtime ends the process at its first finding.
//
// Of its nature it sees library functions by name: memory, locks, sleep, files and sockets. It does
// not see memory mapped, `write` or a bare system call: those are the second net's.

#include "tests/endtoend/AudioThreadWalk.h"

#include <cstdio>
#include <gtest/gtest.h>

extern "C" {
void __rtsan_init();
void __rtsan_realtime_enter();
void __rtsan_realtime_exit();
void __sanitizer_set_death_callback(void (*callback)());
}

namespace pedl::test {

namespace {

const AudioThreadWalk* walkUnderWay = nullptr;

void tellTheCall() {
    std::fprintf(stderr, "found during %s (%d)\n", walkUnderWay->call(), walkUnderWay->detail());
}

void walkSupervised(const char* path) {
    RecordingHost host;
    const PluginLibrary library(path);
    const RunningEffect effect(library, 48000.0F, 1024);
    AudioThreadWalk walk(effect.get(), host);

    walkUnderWay = &walk;
    __rtsan_init();
    __sanitizer_set_death_callback(tellTheCall);
    __rtsan_realtime_enter();
    walk.run();
    __rtsan_realtime_exit();
    walkUnderWay = nullptr;
}

} // namespace

TEST(RealTimeSanitizer, FindsNothingInTheAudioThreadsCalls) {
    walkSupervised(PEDL_PLUGIN_PATH);
}

TEST(RealTimeSanitizer, CatchesAPluginThatAllocates) {
    EXPECT_DEATH(walkSupervised(PEDL_MISBEHAVING_PLUGIN_PATH), "unsafe function `malloc`");
}

} // namespace pedl::test
