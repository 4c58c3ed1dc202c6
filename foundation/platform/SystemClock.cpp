#include "foundation/platform/SystemClock.h"

#include <chrono>
#include <thread>

namespace pedl {

std::uint32_t SystemClock::tickMs() const {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

void SystemClock::sleepMs(std::uint32_t durationMs) {
    std::this_thread::sleep_for(std::chrono::milliseconds(durationMs));
}

std::uint32_t SystemClock::calendarSeconds() const {
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::seconds>(since1970).count());
}

} // namespace pedl
