// A host that has closed its last instance closes the library: nothing of it may be left behind,
// and nothing of the process may have changed.

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <set>
#include <signal.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>
#include <xmmintrin.h>

namespace pedl::test {

namespace {

constexpr VstInt32 kBlockFrames = 512;
constexpr double kMebibyte = 1024.0 * 1024.0;

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

void loadUseAndUnload() {
    const PluginLibrary library(PEDL_PLUGIN_PATH);
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    process(effect.get());
}

class Unload : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(PluginLibrary(PEDL_PLUGIN_PATH).isOpen());
        loadUseAndUnload(); // what the C library and the loader set up once is none of ours
    }

    QuietStandardError quiet;
    RecordingHost host;
};

} // namespace

TEST_F(Unload, LeavesTheProcessAsItWas) {
    const ProcessState before;
    loadUseAndUnload();
    const ProcessState after;

    EXPECT_FALSE(isMapped(PEDL_PLUGIN_PATH));
    EXPECT_TRUE(after == before);
    EXPECT_EQ(after.signalHandlers, before.signalHandlers);
    EXPECT_EQ(after.environment, before.environment);
    EXPECT_EQ(after.sseControl, before.sseControl);
    EXPECT_EQ(after.x87Control, before.x87Control);
    EXPECT_EQ(after.threads, before.threads);
    EXPECT_EQ(after.openFiles, before.openFiles);
}

TEST_F(Unload, ARunningInstanceHasNoThreadAndNoFile) {
    const ProcessState before;
    const PluginLibrary library(PEDL_PLUGIN_PATH);
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    process(effect.get());
    EXPECT_TRUE(ProcessState() == before);
}

TEST_F(Unload, LeavesNoMemoryBehind) {
    constexpr int kRounds = 50;
    constexpr double kAllowedBytesPerRound = 256.0; // the loader's own bookkeeping
    const double before = allocatedBytes();
    for (int round = 0; round < kRounds; ++round) {
        loadUseAndUnload();
        ASSERT_FALSE(isMapped(PEDL_PLUGIN_PATH));
    }
    const double perRound = (allocatedBytes() - before) / kRounds;
    std::printf("left behind by loading, using and unloading: %.0f bytes\n", perRound);
    EXPECT_LE(perRound, kAllowedBytesPerRound);
}

TEST_F(Unload, AnAbandonedInstanceDoesNotPinTheLibrary) {
    {
        const PluginLibrary library(PEDL_PLUGIN_PATH);
        ASSERT_NE(library.create(), nullptr); // neither opened nor closed
    }
    EXPECT_FALSE(isMapped(PEDL_PLUGIN_PATH));
}

TEST_F(Unload, HundredsOfInstancesLeaveNoMemoryBehind) {
    constexpr int kInstances = 300;
    const PluginLibrary library(PEDL_PLUGIN_PATH);
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

TEST_F(Unload, ASecondInstanceIsSmall) {
    const PluginLibrary library(PEDL_PLUGIN_PATH);
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
