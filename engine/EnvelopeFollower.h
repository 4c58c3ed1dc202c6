#pragma once

#include "engine/ChangeMarks.h"
#include "engine/InstructionSet.h"
#include "engine/Smoothing.h"
#include "engine/Stretch.h"
#include "foundation/basics/Relaxed.h"

#include <cstdint>

namespace pedl {

struct StageTable;

/// What the envelope follower says of each frame.
struct EnvelopeOutput {
    MonoStretch level;        ///< logarithmic: 0 at the threshold, 1 a factor of ten away from it
    MonoStretch depth;        ///< factor on the LFO's depth, 0..1
    MonoStretch cutoffOffset; ///< added to the normalised cut-off
    MonoStretch rateHz;       ///< LFO rate with the envelope's share, at least 0.01
    MonoStretch gain;         ///< output-gain factor, linear
};

/// Measures the level of the input and turns it into four modulations: of the cut-off, of the LFO's
/// depth, of the LFO's rate and of the output gain.
///
/// Power goes through a threshold, a peak hold and two one-pole smoothers in a row, whose second is
/// slowed down by the attack shape: a soft, S-shaped rise. The logarithm of the root of that is the
/// level.
///
/// Threads: setters, `rateAmount` and `mode` any, real time; `process`, `tick` and `makeup` audio,
/// real time; the rest while no audio runs.
class EnvelopeFollower {
public:
    enum class ThresholdMode : int { Above = 0, Below = 1, Around = 2 };

    explicit EnvelopeFollower(InstructionSet instructions = widestInstructionSet());

    /// @param attackMs 1..2000; the level takes about this long to rise
    void setAttackTime(double attackMs) noexcept;
    /// @param releaseMs 3..3000
    void setReleaseTime(double releaseMs) noexcept;
    /// @param shape 0 one pole .. 1 two equal poles; above 1 counts as 1
    void setAttackShape(double shape) noexcept;
    /// @param holdMs time for which a peak is held, times the extension; 0 or above
    void setHoldTime(double holdMs) noexcept;

    // The values below are normalised, 0..1.
    void setExtension(double normalised) noexcept;
    void setRange(double normalised) noexcept;
    void setThreshold(double normalised) noexcept;
    void setMode(double normalised) noexcept;
    void setDepthAmount(double normalised) noexcept;
    void setDepthSwitch(double normalised) noexcept;
    void setGainAmount(double normalised) noexcept;
    void setGainSwitch(double normalised) noexcept;
    void setRateAmount(double normalised) noexcept;
    void setRateSwitch(double normalised) noexcept;
    void setCutoffAmount(double normalised) noexcept;
    void setCutoffSwitch(double normalised) noexcept;

    /// Frames per second. The four coefficients follow at once; the hold keeps its length in frames
    /// until its time or extension is set again, and songs have been mixed with that.
    void setSampleRate(double sampleRateHz) noexcept;

    /// Ends all ramps and empties the smoothers to the rest of the present mode.
    void reinitialise() noexcept;

    /// Moves what moves once a control tick and finds the makeup gain anew.
    /// @param modulation 1 with all modulation on, 0 with it off
    void tick(const ControlTick& tick, double modulation) noexcept;

    /// @param gained          input behind the input gain, finite
    /// @param normalisedRate  base rate of the LFO, 0..1
    /// @param perFrame        smoothing coefficient of the depth, one update a frame
    void process(const StereoStretch& gained, double normalisedRate, double perFrame, int frames,
                 EnvelopeOutput& output) noexcept;

    /// Level-dependent gain moves the mean level; this factor takes most of that back.
    [[nodiscard]] double makeup() const noexcept { return makeup_; }

    /// Slope of the LFO rate over the squared level, -1..1; 0 with its switch off.
    [[nodiscard]] double rateAmount() const noexcept {
        return rateSwitch_.get() == 0.0 ? 0.0 : 2.0 * rateNormalised_.get() - 1.0;
    }

    [[nodiscard]] ThresholdMode mode() const noexcept {
        return static_cast<ThresholdMode>(mode_.get());
    }

    /// What a stage keeps from stretch to stretch.
    struct State {
        double held = 0.0;
        std::int64_t heldFrames = 0;
        double first = 1.0;  ///< first smoother, in threshold units of power
        double second = 1.0; ///< second smoother
        StretchSmoother depthSlope;
        StretchSmoother depthRest{1.0};
        MonoStretch power; ///< behind threshold, hold and smoothers
    };

    /// What a stage needs to know, read once a stretch.
    struct Controls {
        ThresholdMode mode = ThresholdMode::Above;
        double thresholdFactor = 1.0, belowFloor = 0.0;
        double range = 0.0; ///< of the present mode
        std::int64_t holdFrames = 0;
        double attack1 = 1.0, attack2 = 1.0, release1 = 1.0, release2 = 1.0;
        double cutoffAmount = 0.0, gainExponent = 1.0;
        double rateAmount = 0.0, normalisedRate = 0.0;
    };

private:
    enum class Group { Times, Hold, Threshold, Range, Depth, Gain };

    void deriveChanged() noexcept;
    void deriveTimes() noexcept;
    void deriveHold() noexcept;
    void deriveThreshold() noexcept;
    void deriveRange() noexcept;
    void deriveDepth() noexcept;
    void deriveGain() noexcept;
    [[nodiscard]] double makeupFor(double exponent) const noexcept;

    const StageTable& stages_;
    double sampleRateHz_ = kStartRateHz;

    // Written by any thread, read by audio.
    Relaxed<double> attackMs_{1.0}, releaseMs_{3.0}, shape_{0.0};
    Relaxed<double> holdMs_{0.0}, extension_{1.0};
    Relaxed<double> threshold_{1.0}, rangeNormalised_{0.0};
    Relaxed<int> mode_{0};
    Relaxed<double> depthAmount_{0.5}, depthSwitch_{0.0};
    Relaxed<double> gainAmount_{0.5}, gainSwitch_{0.0};
    Relaxed<double> rateNormalised_{0.5}, rateSwitch_{0.0};
    Relaxed<double> cutoffAmount_{0.0}, cutoffSwitch_{0.0};
    ChangeMarks<Group> changes_;

    // Derived from them.
    double attack1_ = 1.0, attack2_ = 1.0, release1_ = 1.0, release2_ = 1.0;
    std::int32_t holdFrames_ = 0;
    double thresholdFactor_ = 1.0, belowFloor_ = 0.0;
    double range_ = 0.0, rangeBelow_ = 0.0;
    double depthSlope_ = 0.0, depthRest_ = 1.0;
    double gainExponent_ = 1.0;

    // Moved by `tick`.
    double smoothedRange_ = 0.0, smoothedRangeBelow_ = 0.0;
    double smoothedGainExponent_ = 1.0, smoothedCutoffAmount_ = 0.0;
    double makeup_ = 1.0;

    State state_;
};

} // namespace pedl
