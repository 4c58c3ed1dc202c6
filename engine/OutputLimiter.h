#pragma once

#include "engine/InstructionSet.h"
#include "engine/Smoothing.h"
#include "engine/Stretch.h"
#include "foundation/basics/Relaxed.h"

namespace pedl {

struct StageTable;

/// Peak limiter with a soft knee. The envelope follows the louder channel in units of the ceiling;
/// the release is programme-dependent: fast far below the envelope, slow near it.
///
/// Threads: `setLevel` any, real time; `process` and `gain` audio, real time; the rest while no
/// audio runs.
class OutputLimiter {
public:
    explicit OutputLimiter(InstructionSet instructions = widestInstructionSet());

    /// @param level ceiling, linear, above 0
    void setLevel(double level) noexcept { driveTarget_.set(1.0 / level); }
    /// @param attackMs outside 0.1..100 taken as the nearer bound
    void setAttack(double attackMs) noexcept;
    /// @param releaseMs outside 30..3000 taken as the nearer bound
    void setRelease(double releaseMs) noexcept;
    /// The times it works with: 5 ms and 50 ms.
    void setDefaults() noexcept;

    /// The ceiling's ramp keeps the rate that was set before this one.
    /// @param sampleRateHz outside 44100..192000 taken as the nearer bound
    void setSampleRate(double sampleRateHz) noexcept;

    void reset() noexcept;

    /// Limits in place.
    void process(StereoStretch& io, int frames) noexcept;

    /// Gain of the last frame, linear, above 0 and up to 1.
    [[nodiscard]] double gain() const noexcept { return state_.gain; }

    struct State {
        StretchSmoother drive;
        double envelope = 0.0; ///< in units of the ceiling
        double gain = 1.0;
        MonoStretch envelopes;
    };

    struct Controls {
        double drive = 2.0, smoothing = 1.0, attack = 1.0, release = 1.0;
    };

private:
    static constexpr double kLowestRateHz = 44100.0;
    static constexpr double kHighestRateHz = 192000.0;

    const StageTable& stages_;
    Relaxed<double> driveTarget_{2.0}; // written by any thread, read by audio
    double sampleRateHz_ = kStartRateHz;
    double attackMs_ = 10.0, releaseMs_ = 300.0;
    double smoothing_ = 1.0, attack_ = 1.0, release_ = 1.0; // coefficients
    State state_;
};

} // namespace pedl
