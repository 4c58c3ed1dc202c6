#pragma once

#include "editor/Panel.h"

#include <array>
#include <cstddef>

namespace pedl {

/// The lamps that live with the sound: levels light at once and fall in half a second, the two of
/// the LFO follow its wave, averaged the more the faster it is.
class PanelMeters {
public:
    explicit PanelMeters(Panel& panel) : panel_(panel) {}

    /// The window is complete: nothing is lit, no wave remembered.
    void opened();

    /// Reads the engine's levels since the last pass, and lights the lamps.
    void idle();

private:
    static constexpr std::size_t kHistory = 16;

    void lightFalling(std::int32_t tag, double level, float fall) const;
    void lightLfo(const MeterSnapshot& meters);

    Panel& panel_;
    float lastIdleTick_ = 0.0F; // milliseconds
    std::array<float, kHistory> lfoHistoryLeft_{};
    std::array<float, kHistory> lfoHistoryRight_{};
    std::size_t lfoHistoryIndex_ = 0;
};

} // namespace pedl
