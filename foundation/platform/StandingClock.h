#pragma once

#include "foundation/platform/Clock.h"

namespace pedl {

/// A clock that stands still at one second of the calendar: no wait takes any time, and random
/// waves are those of that second. For programs that measure or compare.
class StandingClock final : public Clock {
public:
    explicit StandingClock(std::uint32_t seconds = 1) noexcept : seconds_(seconds) {}

    [[nodiscard]] std::uint32_t tickMs() const override { return 0; }
    void sleepMs(std::uint32_t) override {}
    [[nodiscard]] std::uint32_t calendarSeconds() const override { return seconds_; }

private:
    std::uint32_t seconds_;
};

} // namespace pedl
