#pragma once

#include <cstdint>

#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

/// The time of timers and ticks, moved by hand while an object of this class lives. One at a time.
class ManualClock {
public:
    ManualClock() {
        nowMs() = 1000;
        setTickSource([] { return nowMs(); });
    }
    ~ManualClock() { setTickSource(nullptr); }
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    void advance(uint64_t ms) { nowMs() += ms; }

private:
    static uint64_t& nowMs() {
        static uint64_t now = 0;
        return now;
    }
};

} // namespace VSTGUI
