// A host that has closed its last instance closes the library: nothing of it may be left behind,
// and nothing of the process may have changed.

#include "tests/foundation/vstgui/x11/XServer.h"
#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <memory>
#include <set>
#include <signal.h>
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

std::size_t entriesOf(const char* folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

bool isMapped(const std::string& libraryPath) {
    std::ifstream maps("/proc/self/maps");
    const std::string name = std::filesystem::path(libraryPath).filename();
    for (std::string line; std::getline(maps, line);)
        if (line.find(name) != std::string::npos)
            return true;
    return false;
}

/// Memory that this process has to itself, pages counted by the kernel. What the heap only keeps
/// for later is given back first.
double privateBytes() {
    malloc_trim(0);
    std::ifstream smaps("/proc/self/smaps_rollup");
    double kibibytes = 0.0;
    for (std::string line; std::getline(smaps, line);)
        if (line.starts_with("Private_Dirty:") || line.starts_with("Private_Clean:"))
            kibibytes += std::stod(line.substr(line.find(':') + 1));
    return kibibytes * 1024.0;
}

double allocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Bytes that stay allocated for each call of `round`. A thread's cache of freed blocks counts as
/// allocated and goes with the thread, so the calls are made in one of their own.
double leftBehindBy(void (*round)(), int rounds) {
    const auto inThread = [round](int count) {
        std::thread([round, count] {
            for (int done = 0; done < count; ++done)
                round();
        }).join();
    };
    inThread(1);
    const double before = allocatedBytes();
    inThread(rounds);
    return (allocatedBytes() - before) / rounds;
}

std::uint16_t x87ControlWord() {
    std::uint16_t word = 0;
    asm volatile("fnstcw %0" : "=m"(word));
    return word;
}

/// What belongs to the whole process and is nobody's to change in passing.
struct ProcessState {
    std::vector<void*> signalHandlers;
    std::string locale = std::setlocale(LC_ALL, nullptr);
    std::string workingDirectory = std::filesystem::current_path();
    std::vector<std::string> environment;
    unsigned sseControl = _mm_getcsr() & ~_MM_EXCEPT_MASK; // the sticky result bits apart
    std::uint16_t x87Control = x87ControlWord();
    mode_t fileMask = umask(0);
    std::size_t threads = entriesOf("/proc/self/task");
    std::size_t openFiles = entriesOf("/proc/self/fd");

    ProcessState() {
        umask(fileMask);
        for (int number = 1; number < NSIG; ++number) {
            struct sigaction action {};
            sigaction(number, nullptr, &action);
            signalHandlers.push_back(reinterpret_cast<void*>(action.sa_handler));
        }
        for (char** variable = environ; *variable; ++variable)
            environment.emplace_back(*variable);
    }

    bool operator==(const ProcessState&) const = default;
};

/// Keeps the instances' start and stop lines out of the test's own output.
class QuietStandardError {
public:
    QuietStandardError() : kept_(dup(STDERR_FILENO)) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
    ~QuietStandardError() {
        dup2(kept_, STDERR_FILENO);
        close(kept_);
    }
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;

private:
    int kept_;
};

void process(AEffect* effect) {
    auto buffer = noise<float>(kBlockFrames, 1);
    auto pointers = buffer.from(0);
    for (int block = 0; block < 4; ++block)
        effect->processReplacing(effect, pointers.data(), pointers.data(), kBlockFrames);
}

/// A library that stays loaded until the test ends.
class HeldLibrary {
public:
    explicit HeldLibrary(const char* name) : handle_(dlopen(name, RTLD_LAZY | RTLD_LOCAL)) {}
    ~HeldLibrary() { dlclose(handle_); }
    HeldLibrary(const HeldLibrary&) = delete;
    HeldLibrary& operator=(const HeldLibrary&) = delete;

private:
    void* handle_;
};

struct Library {
    const char* name;
    const char* path;
};

void PrintTo(const Library& library, std::ostream* stream) {
    *stream << library.name;
}

class Unload : public testing::TestWithParam<Library> {
protected:
    void SetUp() override {
        ASSERT_TRUE(PluginLibrary(path()).isOpen());
        loadUseAndUnload(); // what the C library and the loader set up once is none of ours
    }

    static const char* path() { return GetParam().path; }

    static void loadUseAndUnload() {
        const PluginLibrary library(path());
        const RunningEffect effect(library, 48000.0F, kBlockFrames);
        process(effect.get());
    }

    // Its constructor allocates some 12 kB that its unloading does not give back. A host with a
    // window has the library for its own drawing, so that it comes and goes with the host.
    HeldLibrary pixman{"libpixman-1.so.0"};
    QuietStandardError quiet;
    RecordingHost host;
};

/// The library that has an editor.
class UnloadEditor : public Unload {
protected:
    void SetUp() override {
        if (VSTGUI::sharedXServer() == nullptr)
            GTEST_SKIP() << "Xvfb is not installed";
        loadShowAndUnload();
    }

    /// The screen itself is the host's window.
    static void loadShowAndUnload() {
        const std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection(
            xcb_connect(nullptr, nullptr), xcb_disconnect);
        const xcb_window_t window =
            xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
        const PluginLibrary library(path());
        const RunningEffect effect(library, 48000.0F, kBlockFrames);
        EXPECT_EQ(dispatch(effect.get(), effEditOpen, 0, 0,
                           reinterpret_cast<void*>(std::uintptr_t{window})),
                  1);
        for (int turn = 0; turn < 5; ++turn)
            dispatch(effect.get(), effEditIdle);
        process(effect.get());
        dispatch(effect.get(), effEditClose);
    }
};

const Library kToolkit{"toolkit", PEDL_TOOLKIT_PROBE_PATH};

std::string nameOf(const testing::TestParamInfo<Library>& library) {
    return library.param.name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, Unload, testing::Values(Library{"plugin", PEDL_PLUGIN_PATH}, kToolkit),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(, UnloadEditor, testing::Values(kToolkit), nameOf);

TEST_P(Unload, LeavesTheProcessAsItWas) {
    const ProcessState before;
    loadUseAndUnload();
    const ProcessState after;

    EXPECT_FALSE(isMapped(path()));
    EXPECT_TRUE(after == before);
    EXPECT_EQ(after.signalHandlers, before.signalHandlers);
    EXPECT_EQ(after.environment, before.environment);
    EXPECT_EQ(after.sseControl, before.sseControl);
    EXPECT_EQ(after.x87Control, before.x87Control);
    EXPECT_EQ(after.threads, before.threads);
    EXPECT_EQ(after.openFiles, before.openFiles);
}

TEST_P(Unload, ARunningInstanceHasNoThreadAndNoFile) {
    const ProcessState before;
    const PluginLibrary library(path());
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    process(effect.get());
    EXPECT_TRUE(ProcessState() == before);
}

TEST_P(Unload, LeavesNoMemoryBehind) {
    const double perRound = leftBehindBy(loadUseAndUnload, 50);
    std::printf("left behind by loading, using and unloading: %.0f bytes\n", perRound);
    EXPECT_FALSE(isMapped(path()));
    EXPECT_LE(perRound, kLoadersBytesPerRound);
}

TEST_P(UnloadEditor, LeavesTheProcessAsItWas) {
    const ProcessState before;
    loadShowAndUnload();
    EXPECT_FALSE(isMapped(path()));
    EXPECT_TRUE(ProcessState() == before);
}

TEST_P(UnloadEditor, LeavesNoMemoryBehind) {
    const double perRound = leftBehindBy(loadShowAndUnload, 15);
    std::printf("left behind by loading, showing and unloading: %.0f bytes\n", perRound);
    EXPECT_LE(perRound, kLoadersBytesPerRound);
}

TEST_P(Unload, AnAbandonedInstanceDoesNotPinTheLibrary) {
    {
        const PluginLibrary library(path());
        ASSERT_NE(library.create(), nullptr); // neither opened nor closed
    }
    EXPECT_FALSE(isMapped(path()));
}

TEST_P(Unload, HundredsOfInstancesLeaveNoMemoryBehind) {
    constexpr int kInstances = 300;
    const PluginLibrary library(path());
    const auto openAndClose = [&] {
        const RunningEffect effect(library, 48000.0F, kBlockFrames);
        process(effect.get());
    };
    openAndClose();
    const double before = allocatedBytes();
    for (int instance = 0; instance < kInstances; ++instance)
        openAndClose();
    const double perInstance = (allocatedBytes() - before) / kInstances;
    std::printf("left behind by an instance: %.1f bytes\n", perInstance);
    EXPECT_LE(perInstance, 16.0);
}

TEST_P(Unload, ASecondInstanceIsSmall) {
    const PluginLibrary library(path());
    const RunningEffect first(library, 48000.0F, kBlockFrames);
    process(first.get());

    const double privateBefore = privateBytes();
    const double allocatedBefore = allocatedBytes();
    const RunningEffect second(library, 48000.0F, kBlockFrames);
    process(second.get());
    const double privateGrowth = privateBytes() - privateBefore;
    const double allocatedGrowth = allocatedBytes() - allocatedBefore;

    std::printf("second instance: %.3f MB private pages, %.3f MB allocated\n",
                privateGrowth / kMebibyte, allocatedGrowth / kMebibyte);
    EXPECT_LE(privateGrowth, 0.7 * kMebibyte);
    EXPECT_LE(allocatedGrowth, 0.7 * kMebibyte);
}

} // namespace pedl::test
