#pragma once

#include "foundation/platform/Clock.h"

namespace pedl {

/// The operating system's clock. Has no state: any number of them may be made.
///
/// The tick is monotonic; setting the calendar does not move it. Thread: any.
class SystemClock final : public Clock {
public:
    [[nodiscard]] std::uint32_t tickMs() const override;
    void sleepMs(std::uint32_t durationMs) override;
    [[nodiscard]] std::uint32_t calendarSeconds() const override;
};

} // namespace pedl
