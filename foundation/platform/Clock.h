#pragma once

#include <cstdint>

namespace pedl {

/// Time as the effect meets it: a tick, a wait, and the calendar. Tests pass their own, so that no
/// test waits and every wave can be seeded.
class Clock {
public:
    virtual ~Clock() = default;

    /// Milliseconds since some start. Wraps after 49 days: compare by unsigned differences.
    [[nodiscard]] virtual std::uint32_t tickMs() const = 0;

    /// Blocks the calling thread for at least `durationMs`. Thread: any but audio.
    virtual void sleepMs(std::uint32_t durationMs) = 0;

    /// Seconds since 1 January 1970, UTC; differs from run to run, so it seeds random waves.
    [[nodiscard]] virtual std::uint32_t calendarSeconds() const = 0;
};

} // namespace pedl
