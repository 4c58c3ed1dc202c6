#include "host/Interrupt.h"

#include "host/Messages.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>
#include <limits.h>
#include <string_view>
#include <unistd.h>

namespace pedl {

namespace {

constexpr std::array kEndSignals{SIGINT, SIGTERM, SIGHUP};
constexpr std::array kWriteSignals{SIGXFSZ, SIGPIPE};
constexpr std::array kCrashSignals{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

// What the handlers read: signal handlers may touch nothing that needs a lock.
volatile std::sig_atomic_t arrived = 0;
std::array<char, PATH_MAX> doomedFile{};
std::atomic<bool> isDoomed{false};

std::array<struct sigaction, kEndSignals.size()> formerEnd;
std::array<struct sigaction, kWriteSignals.size()> formerWrite;

void removeDoomedFile() {
    if (isDoomed.exchange(false))
        unlink(doomedFile.data());
}

extern "C" void onEndSignal(int number) {
    if (arrived == 0) {
        arrived = number;
        return;
    }
    removeDoomedFile();
    _exit(128 + number);
}

extern "C" void onCrash(int number) {
    removeDoomedFile();
    constexpr std::string_view kLine =
        "zmt-pedlfilter: crashed, most likely inside the plug-in; nothing was written\n";
    [[maybe_unused]] const ssize_t written = write(messageDescriptor(), kLine.data(), kLine.size());
    std::signal(number, SIG_DFL);
    std::raise(number);
}

} // namespace

Interrupt::Interrupt() {
    arrived = 0;
    struct sigaction onEnd {};
    onEnd.sa_handler = onEndSignal;
    sigemptyset(&onEnd.sa_mask);
    onEnd.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
        sigaction(kEndSignals[i], nullptr, &formerEnd[i]);
        if (formerEnd[i].sa_handler != SIG_IGN) // nohup, a shell's background job
            sigaction(kEndSignals[i], &onEnd, nullptr);
    }

    struct sigaction crashed {};
    crashed.sa_handler = onCrash;
    sigemptyset(&crashed.sa_mask);
    for (const int number : kCrashSignals) {
        struct sigaction held {};
        sigaction(number, nullptr, &held);
        if (held.sa_handler == SIG_DFL)
            sigaction(number, &crashed, nullptr);
    }
    struct sigaction ignored {};
    ignored.sa_handler = SIG_IGN;
    sigemptyset(&ignored.sa_mask);
    for (std::size_t i = 0; i < kWriteSignals.size(); ++i)
        sigaction(kWriteSignals[i], &ignored, &formerWrite[i]);
}

Interrupt::~Interrupt() {
    removeAtEnd({});
    for (std::size_t i = 0; i < kWriteSignals.size(); ++i)
        sigaction(kWriteSignals[i], &formerWrite[i], nullptr);
    for (std::size_t i = 0; i < kEndSignals.size(); ++i)
        sigaction(kEndSignals[i], &formerEnd[i], nullptr);
    for (const int number : kCrashSignals) {
        struct sigaction held {};
        sigaction(number, nullptr, &held);
        if (held.sa_handler == onCrash)
            std::signal(number, SIG_DFL);
    }
}

int Interrupt::signalNumber() {
    return arrived;
}

void Interrupt::removeAtEnd(const std::filesystem::path& path) {
    isDoomed = false;
    const std::string& name = path.native();
    if (name.empty() || name.size() >= doomedFile.size())
        return;
    std::memcpy(doomedFile.data(), name.c_str(), name.size() + 1);
    isDoomed = true;
}

} // namespace pedl
