#pragma once

#include "engine/InstructionSet.h"
#include "engine/Smoothing.h"
#include "engine/Stretch.h"
#include "foundation/basics/Relaxed.h"

namespace pedl {

struct StageTable;

/// Driven hyperbolic tangent, scaled back by the drive: small signals pass as they are, large ones
/// end at 1 / drive.
///
/// Threads: setters and `readMeter` any, real time; `process` audio, real time; the rest while
/// no audio runs.
class SoftSaturator {
public:
    explicit SoftSaturator(InstructionSet instructions = widestInstructionSet());

    /// @param normalised 0..1 for -12..+18 dB, 0 dB in the middle
    void setDrive(double normalised) noexcept;

    /// Silences the meter; the sound is blended by the caller.
    void setOff(bool isOff) noexcept { isOff_.set(isOff); }

    /// Any rate above 0; ends the ramp of the drive and clears the meter.
    void setSampleRate(double sampleRateHz) noexcept;

    void reset() noexcept { peak_.set(0.0); }

    /// Saturates in place.
    /// @param isHeard whether any of the output will be used; else only the state moves on
    void process(StereoStretch& io, bool isHeard, int frames) noexcept;

    /// The largest |L| + |R| in front of the tangent since the last call; 0 while off.
    [[nodiscard]] double readMeter() noexcept;

    struct State {
        StretchSmoother drive;
        double peak = 0.0; ///< of the last stretch
    };

    struct Controls {
        double drive = 1.0, smoothing = 1.0;
        bool isHeard = true; ///< else only the state moves on
    };

private:
    const StageTable& stages_;
    Relaxed<double> driveTarget_{1.0}; // written by any thread, read by audio
    Relaxed<double> peak_{0.0};        // raised by audio, cleared by the view's thread
    Relaxed<bool> isOff_{false};       // written by any thread, read by the view's
    double smoothing_ = 1.0;
    State state_;
};

} // namespace pedl
