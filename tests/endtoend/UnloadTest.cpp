// A host that has closed its last instance closes the library: nothing of it may be left behind,
// and nothing of the process may have changed.

#include "tests/foundation/vstgui/x11/XServer.h"
#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <clocale>
#include <cstdio>
#include <dlfcn.h>
#include <fenv.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <malloc.h>
#include <memory>
#include <signal.h>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>
#include <xmmintrin.h>

namespace pedl::test {

namespace {

constexpr VstInt32 kBlockFrames = 512;
constexpr double kMebibyte = 1024.0 * 1024.0;

/// The loader's own bookkeeping.
constexpr double kLoadersBytesPerRound = 256.0;

bool isLoaded(const char* path) {
    return dlopen(path, RTLD_LAZY | RTLD_NOLOAD) != nullptr;
}

double allocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Bytes that stay allocated for each call of `round`. A thread's cache of freed blocks counts as
/// allocated and goes with the thread, so the calls are made in one of their own.
double leftBehindBy(const std::function<void()>& round, int rounds) {
    const auto inThread = [&round](int count) {
        std::thread([&round, count] {
            for (int done = 0; done < count; ++done)
                round();
        }).join();
    };
    inThread(1);
    const double before = allocatedBytes();
    inThread(rounds);
    return (allocatedBytes() - before) / rounds;
}

/// What belongs to the whole process and is nobody's to change in passing.
std::vector<std::string> processState() {
    std::vector<std::string> state{std::setlocale(LC_ALL, nullptr),
                                   std::filesystem::current_path()};
    for (char** variable = environ; *variable; ++variable)
        state.emplace_back(*variable);
    const auto say = [&state](const char* what, auto value) {
        state.push_back((std::ostringstream() << what << ' ' << value).str());
    };
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action {};
        sigaction(number, nullptr, &action);
        say("signal handler", reinterpret_cast<void*>(action.sa_handler));
    }
    for (const char* folder : {"/proc/self/task", "/proc/self/fd"})
        say(folder, std::distance(std::filesystem::directory_iterator(folder), {}));
    fenv_t arithmetic;
    fegetenv(&arithmetic);
    say("x87 control", arithmetic.__control_word);
    say("SSE control", arithmetic.__mxcsr & ~_MM_EXCEPT_MASK); // the sticky result bits apart
    const mode_t mask = umask(0);
    umask(mask);
    say("file mask", mask);
    return state;
}

void process(AEffect* effect) {
    auto buffer = noise<float>(kBlockFrames, 1);
    auto pointers = buffer.from(0);
    for (int block = 0; block < 4; ++block)
        effect->processReplacing(effect, pointers.data(), pointers.data(), kBlockFrames);
}

/// A library, and whether its editor is to be shown: the screen itself is then the host's window.
struct Guest {
    const char* path;
    bool isShown;

    void use() const {
        const PluginLibrary library(path);
        const RunningEffect effect(library, 48000.0F, kBlockFrames);
        if (isShown)
            show(effect.get());
        process(effect.get());
        dispatch(effect.get(), effEditClose);
    }

    static void show(AEffect* effect) {
        const std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection(
            xcb_connect(nullptr, nullptr), xcb_disconnect);
        const xcb_window_t window =
            xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
        EXPECT_EQ(
            dispatch(effect, effEditOpen, 0, 0, reinterpret_cast<void*>(std::uintptr_t{window})),
            1);
        for (int turn = 0; turn < 5; ++turn)
            dispatch(effect, effEditIdle);
    }
};

void PrintTo(const Guest& guest, std::ostream* stream) {
    *stream << guest.path;
}

class Unload : public testing::TestWithParam<Guest> {
protected:
    void SetUp() override {
        if (guest.isShown && VSTGUI::sharedXServer() == nullptr)
            GTEST_SKIP() << "Xvfb is not installed";
        // Its constructor allocates some 12 kB that its unloading does not give back. A host with a
        // window has the library for its own drawing, so that it comes and goes with the host.
        ASSERT_NE(dlopen("libpixman-1.so.0", RTLD_LAZY), nullptr);
        ASSERT_NE(std::freopen("/dev/null", "w", stderr), nullptr); // hundreds start and stop
        guest.use(); // what the C library and the loader set up once is none of ours
    }

    const Guest guest = GetParam();
    RecordingHost host;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(
    , Unload, testing::Values(Guest{PEDL_PLUGIN_PATH, false}, Guest{PEDL_PLUGIN_PATH, true}),
    [](const auto& guest) { return guest.param.isShown ? "shown" : "hidden"; });

TEST_P(Unload, LeavesTheProcessAsItWas) {
    const std::vector<std::string> before = processState();
    {
        const PluginLibrary library(guest.path);
        ASSERT_NE(library.create(), nullptr); // abandoned: neither opened nor closed
        const RunningEffect effect(library, 48000.0F, kBlockFrames);
        process(effect.get());
        dispatch(effect.get(), effEditIdle);
        EXPECT_EQ(processState(), before) << "no thread, no file, no connection to a display";
    }
    guest.use();
    EXPECT_FALSE(isLoaded(guest.path));
    EXPECT_EQ(processState(), before);
}

TEST_P(Unload, LeavesNoMemoryBehind) {
    const double perRound = leftBehindBy([this] { guest.use(); }, guest.isShown ? 15 : 50);
    std::printf("left behind by loading, using and unloading: %.0f bytes\n", perRound);
    EXPECT_LE(perRound, kLoadersBytesPerRound);
}

TEST_P(Unload, ASecondInstanceIsSmallAndLeavesNothing) {
    const PluginLibrary library(guest.path);
    const RunningEffect first(library, 48000.0F, kBlockFrames);
    process(first.get());
    double inUse = 0.0;
    const double left = leftBehindBy(
        [&] {
            const double before = allocatedBytes();
            const RunningEffect second(library, 48000.0F, kBlockFrames);
            process(second.get());
            inUse = allocatedBytes() - before;
        },
        300);
    std::printf("second instance: %.3f MB, leaves %.1f bytes\n", inUse / kMebibyte, left);
    EXPECT_LE(inUse, 0.7 * kMebibyte);
    EXPECT_LE(left, 16.0);
}

} // namespace pedl::test
