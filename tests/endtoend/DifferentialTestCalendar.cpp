#include "tests/endtoend/DifferentialTestCalendar.h"

#include <atomic>
#include <ctime>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

std::atomic<std::uint32_t> calendarSeconds{1};

} // namespace

namespace pedl::test {

void setCalendarSeconds(std::uint32_t seconds) {
    calendarSeconds = seconds;
}

} // namespace pedl::test

// The program's definitions come before the C library's: whichever way a library asks for the
// calendar, it meets these.
#pragma GCC visibility push(default)

extern "C" {

int clock_gettime(clockid_t clock, timespec* result) noexcept {
    if (clock != CLOCK_REALTIME)
        return static_cast<int>(syscall(SYS_clock_gettime, clock, result));
    *result = {static_cast<time_t>(calendarSeconds.load()), 0};
    return 0;
}

time_t time(time_t* result) noexcept {
    const auto seconds = static_cast<time_t>(calendarSeconds.load());
    if (result)
        *result = seconds;
    return seconds;
}

int gettimeofday(timeval* result, void*) noexcept {
    *result = {static_cast<time_t>(calendarSeconds.load()), 0};
    return 0;
}
}

#pragma GCC visibility pop
