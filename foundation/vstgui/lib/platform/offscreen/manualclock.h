#pragma once

#include <atomic>
#include <cstdint>

#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

/// The time of timers and ticks, moved by hand while an object of this class lives. One at a time,
/// for all threads.
class ManualClock {
public:
    ManualClock() {
        nowMs() = 1000;
        setTickSource([]() -> uint64_t { return nowMs(); });
    }
    ~ManualClock() { setTickSource(nullptr); }
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    void advance(uint64_t ms) { nowMs() += ms; }

private:
    static std::atomic<uint64_t>& nowMs() {
        static constinit std::atomic<uint64_t> now{0};
        return now;
    }
};

} // namespace VSTGUI
