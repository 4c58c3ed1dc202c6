#pragma once

#include "engine/ChangeMarks.h"
#include "engine/CutoffPath.h"
#include "engine/EnvelopeFollower.h"
#include "engine/InstructionSet.h"
#include "engine/Lfo.h"
#include "engine/MeterSnapshot.h"
#include "engine/MultimodeFilter.h"
#include "engine/OutputLimiter.h"
#include "engine/Smoothing.h"
#include "engine/SoftSaturator.h"
#include "engine/Stretch.h"
#include "foundation/basics/Relaxed.h"

#include <cstdint>
#include <limits>

namespace pedl {

struct StageTable;

/// The modulation that the last processed frame was given.
struct ModulationState {
    double cutoffLeftHz = 1000.0;
    double cutoffRightHz = 1000.0;
    double lfoLeft = 0.0;      ///< smoothed LFO, -1..1
    double lfoRight = 0.0;     ///< the same, right
    double envelopeGain = 1.0; ///< envelope's output gain, linear, without the makeup
    double gainLeft = 1.0;     ///< whole modulated output gain, linear
    double gainRight = 1.0;    ///< the same, right
};

/// The audio engine: input gain, envelope follower and LFO, filter, modulated output gain, limiter
/// and saturator at one of three places, dry/wet mix, bypass.
///
/// A block is cut into stretches that end at control ticks, at the block's end, and after
/// `kStretchFrames`; each stage runs over a whole stretch. No latency is added, and the result does
/// not depend on how a stream is cut into blocks (the phase lock to a host's position apart, which
/// is set at each block's start).
///
/// Threads: `process...` audio, real time. Setters, `fillMeterSnapshot` and `modulation` any, real
/// time. `setSampleRate`, `reset` and `reinitialise` while no audio runs.
class ModFilterEngine {
public:
    /// @param seed  start of the random waves
    explicit ModFilterEngine(std::uint32_t seed,
                             InstructionSet instructions = widestInstructionSet());

    /// Processes `frames` frames from two input channels to two output channels, which may be the
    /// same memory. Samples that are not finite count as 0. 0 frames and fewer: only what is set
    /// at a block's start is set.
    void processFloat(const float* const* inputs, float* const* outputs,
                      std::int32_t frames) noexcept;
    /// The same over doubles.
    void processDouble(const double* const* inputs, double* const* outputs,
                       std::int32_t frames) noexcept;

    /// Fills `snapshot` and clears the peaks. A peak that comes in between is lost.
    void fillMeterSnapshot(MeterSnapshot& snapshot) noexcept;

    /// For plots and tests; a value of each member may stem from a neighbouring stretch.
    [[nodiscard]] ModulationState modulation() const noexcept;

    /// @param sampleRateHz outside 44100..384000 taken as the nearer bound. Coefficients follow at
    ///                     `reinitialise`, those of the envelope at once.
    void setSampleRate(double sampleRateHz) noexcept;

    /// Empties the filter, the limiter and the saturator.
    void reset() noexcept;

    /// Prepares everything for the sample rate and ends all ramps but that of the input gain.
    /// @param seed  start of new random waves
    void reinitialise(std::uint32_t seed);

    // One setter a parameter; every one takes the normalised host value, 0..1.
    void setPower(float normalised) noexcept;
    void setInputGain(float normalised) noexcept;
    void setFreeze(float normalised) noexcept;

    void setLfoType(float normalised) noexcept { lfo_.setType(normalised); }
    void setLfoFilter(float normalised) noexcept { lfo_.setFilter(normalised); }
    void setLfoWidth(float normalised) noexcept { lfo_.setWidth(normalised); }
    void setLfoRate(float normalised) noexcept { lfo_.setRate(normalised); }
    /// The rate as it was set last.
    [[nodiscard]] float normalisedLfoRate() const noexcept {
        return static_cast<float>(lfo_.normalisedRate());
    }
    void setLfoRandomType(float normalised) noexcept { lfo_.setRandomType(normalised); }
    void setLfoRandomAmount(float normalised) noexcept { lfo_.setRandomAmount(normalised); }
    void setLfoSpread(float normalised) noexcept { lfo_.setSpread(normalised); }

    void setEnvToLfoRateSwitch(float normalised) noexcept { envelope_.setRateSwitch(normalised); }
    void setEnvToLfoRate(float normalised) noexcept { envelope_.setRateAmount(normalised); }
    void setEnvToLfoDepthSwitch(float normalised) noexcept { envelope_.setDepthSwitch(normalised); }
    void setEnvToLfoDepth(float normalised) noexcept { envelope_.setDepthAmount(normalised); }

    void setFilterType(float normalised) noexcept;
    void setFilterSlope(float normalised) noexcept;
    void setResonance(float normalised) noexcept { filter_.setResonance(normalised); }
    void setCutoff(float normalised) noexcept { cutoff_.setBase(normalised); }
    void setFilterSaturation(float normalised) noexcept;

    void setEnvThresholdMode(float normalised) noexcept { envelope_.setMode(normalised); }
    void setEnvThreshold(float normalised) noexcept { envelope_.setThreshold(normalised); }
    void setEnvAttack(float normalised) noexcept;
    void setEnvAttackExtension(float normalised) noexcept { envelope_.setExtension(normalised); }
    void setEnvRelease(float normalised) noexcept;
    void setEnvRange(float normalised) noexcept { envelope_.setRange(normalised); }

    void setLfoToCutoffSwitch(float normalised) noexcept;
    void setLfoToCutoff(float normalised) noexcept;
    void setLfoToGainSwitch(float normalised) noexcept;
    void setLfoToGain(float normalised) noexcept;
    void setEnvToCutoffSwitch(float normalised) noexcept { envelope_.setCutoffSwitch(normalised); }
    void setEnvToCutoff(float normalised) noexcept { envelope_.setCutoffAmount(normalised); }
    void setEnvToGainSwitch(float normalised) noexcept { envelope_.setGainSwitch(normalised); }
    void setEnvToGain(float normalised) noexcept { envelope_.setGainAmount(normalised); }

    void setRouting(float normalised) noexcept;
    void setLimiterSwitch(float normalised) noexcept;
    void setLimiterLevel(float normalised) noexcept;
    void setSaturatorSwitch(float normalised) noexcept;
    void setSaturatorDrive(float normalised) noexcept { saturator_.setDrive(normalised); }
    void setDrySwitch(float normalised) noexcept;
    void setDryLevel(float normalised) noexcept;
    void setWetSwitch(float normalised) noexcept;
    void setWetLevel(float normalised) noexcept;
    void setModulation(float normalised) noexcept;

    /// Locks the LFO to a position: from the next block on each block starts at it. A random wave
    /// and a rate that the envelope moves cannot be locked.
    /// @param phaseCycles position in the LFO's cycle; below 0 before the song's start
    void setPhaseSync(bool isLocked, double phaseCycles) noexcept;

private:
    enum class Routing : int { PreWet, PostWet, PostMix };

    /// A value that moves once a control tick towards what any thread sets.
    struct Ticked {
        Relaxed<double> target;
        double value;

        explicit Ticked(double start) : target(start), value(start) {}
        void snap() noexcept { value = target.get(); }
        void move(const ControlTick& tick, double coefficient) noexcept {
            value = ticked(value, target.get(), coefficient, tick);
        }
    };

    /// What is found once at the start of a block and holds for all of it.
    struct Block {
        bool isFrozen;
        Routing routing;
        double modulation;  ///< 1 with all modulation on, 0 with it off
        double lfoToCutoff; ///< LFO depth in normalised cut-off
        double lfoToGain;   ///< where the LFO's gain amount is heading
    };

    template <typename Sample>
    void process(const Sample* const* inputs, Sample* const* outputs, std::int32_t frames) noexcept;
    enum class Group { Attack, Slope };

    void updateTargets() noexcept;
    void deriveChanged() noexcept;
    void deriveAttack() noexcept;
    void deriveSlope() noexcept;
    [[nodiscard]] Block startBlock() noexcept;
    void controlTick(const Block& block) noexcept;
    void processStretch(const Block& block, int frames) noexcept;
    void modulate(const Block& block, int frames) noexcept;
    void freezeModulation(int frames) noexcept;
    void keepModulation(int frames) noexcept;
    void route(const Block& block, int frames) noexcept;
    void limitAndSaturate(StereoStretch& signal, int frames) noexcept;
    void updateCoefficients() noexcept;

    /// In place of a locked phase: one value, so that no block sees half of a change.
    static constexpr double kNotLocked = std::numeric_limits<double>::quiet_NaN();

    const StageTable& stages_;
    EnvelopeFollower envelope_;
    Lfo lfo_;
    CutoffPath cutoff_;
    MultimodeFilter filter_;
    OutputLimiter limiter_;
    SoftSaturator saturator_;

    // Their targets: those of the first three written by audio, the others by any thread.
    Ticked dry_{0.0}, wet_{0.0}, filterSwitch_{1.0};
    Ticked power_{1.0}, inputGain_{1.0}, limiterSwitch_{0.0}, saturatorSwitch_{0.0};

    // Written by any thread, read by audio.
    Relaxed<double> dryLevel_{1.0}, drySwitch_{0.0}, wetLevel_{1.0}, wetSwitch_{1.0};
    Relaxed<double> lfoToCutoff_{0.0}, lfoToCutoffSwitch_{0.0};
    Relaxed<double> lfoToGain_{0.0}, lfoToGainSwitch_{0.0};
    Relaxed<double> modulation_{1.0};
    Relaxed<int> routing_{0}, filterSlope_{1};
    Relaxed<float> envAttack_{0.0F};
    ChangeMarks<Group> changes_;
    Relaxed<bool> isFrozen_{false};
    Relaxed<double> lockedPhase_{kNotLocked};

    double sampleRateHz_ = kStartRateHz;
    ControlTick tick_;
    double perFrame_ = 1.0; ///< coefficient of values that move every frame
    std::uint32_t tickFrame_ = 0;
    StretchSmoother lfoToGainSmoother_;

    // The stretch in work.
    StereoStretch raw_, gained_, wetSignal_, scratch_;
    EnvelopeOutput envelopeOutput_;
    LfoOutput lfoOutput_;
    CutoffStretch cutoffHz_, frozenCutoffHz_;
    StereoStretch frozenLfo_, outputGain_, unityGain_;
    MonoStretch frozenEnvelopeGain_;

    /// The last values before a freeze, in the order of ModulationState.
    struct Snapshot {
        double cutoffHz[2] = {1000.0, 1000.0};
        double lfo[2] = {0.0, 0.0};
        double envelopeGain = 1.0;
    };
    Snapshot snapshot_;

    // Written by audio, read by the view's thread.
    Relaxed<double> envelopeMeter_{0.0}, dryPeak_{0.0}, wetPeak_{0.0};
    Relaxed<double> lfoMeterLeft_{-1.0}, lfoMeterRight_{-1.0}, limiterMeter_{1.0};
    Relaxed<double> shownCutoffLeft_{1000.0}, shownCutoffRight_{1000.0};
    Relaxed<double> shownLfoLeft_{0.0}, shownLfoRight_{0.0}, shownEnvelopeGain_{1.0};
    Relaxed<double> shownGainLeft_{1.0}, shownGainRight_{1.0};
};

} // namespace pedl
