#pragma once

#include "foundation/basics/Relaxed.h"
#include "parameters/NoteDivision.h"
#include "plugin/HostTime.h"

#include <cstddef>

namespace pedl {

/// Whose tempo the LFO follows.
enum class SyncMode { Free, ManualTempo, HostTempo };

/// Turns tempo and note division into the LFO's rate and, where the host's position is known, its
/// phase.
///
/// Set the mode, the tempo and the division as the parameters change; call `update` before every
/// block and pass the result to the engine.
/// Thread: any, real time.
class TempoSync {
public:
    /// What the engine is to do until the next update.
    struct Result {
        bool hasRate = false;        ///< false: the LFO runs at its free rate
        float normalisedRate = 0.0F; ///< as `kLFOFreq` holds it; good while `hasRate`
        bool isPhaseLocked = false;  ///< phases follow the host's position
        double phaseCycles = 0.0;    ///< -1..1, negative before the song's start
    };

    // What the parameters say, normalised
    void setMode(float normalised) noexcept;
    void setManualTempo(float normalised) noexcept;
    void setDivision(float normalised) noexcept;

    [[nodiscard]] SyncMode mode() const noexcept;

    /// The rate and phase at the host's time. Host tempos beyond 15..600 are taken as the nearer
    /// bound; without one the manual tempo serves.
    [[nodiscard]] Result update(const HostTime& time) noexcept;

    /// Back to 120 beats per minute until the next update; neither overflow nor host tempo.
    void reset() noexcept;

    /// The tempo in use at the last update.
    [[nodiscard]] double tempoBpm() const noexcept;

    /// Whether the last synchronised rate lay beyond what the LFO can do.
    [[nodiscard]] bool isRateOutOfRange() const noexcept;

    /// Whether the tempo in use is the host's.
    [[nodiscard]] bool followsHostTempo() const noexcept;

private:
    // Written by any thread, read by audio.
    Relaxed<SyncMode> mode_{SyncMode::Free};
    Relaxed<double> manualTempoBpm_{kResetTempoBpm};
    Relaxed<std::size_t> divisionIndex_{kWholeNoteDivision};
    // Written by audio, read by the user interface.
    Relaxed<double> tempoBpm_{kResetTempoBpm};
    Relaxed<bool> isRateOutOfRange_{false};
    Relaxed<bool> followsHostTempo_{false};

    static constexpr double kResetTempoBpm = 120.0;
};

} // namespace pedl
