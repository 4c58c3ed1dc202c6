#pragma once

#include "engine/ChangeMarks.h"
#include "engine/InstructionSet.h"
#include "engine/LfoWaves.h"
#include "engine/Smoothing.h"
#include "engine/Stretch.h"
#include "foundation/basics/Relaxed.h"

#include <cstdint>

namespace pedl {

struct StageTable;

/// The LFO over a stretch, left and right, -1..1.
struct LfoOutput {
    StereoStretch raw;      ///< the wave as it is
    StereoStretch smoothed; ///< behind the LFO's low-pass
    StereoStretch table;    ///< scratch: what the wave's table gave
};

/// Low-frequency oscillator: seven waves read from tables, with a width that bends them, two kinds
/// of randomisation, and a right channel that is spread away from the left in phase.
///
/// Threads: setters, `wave` and `normalisedRate` any, real time; `tick`, `lockPhase`, `process` and
/// `filterCoefficient` audio, real time; the rest while no audio runs.
class Lfo {
public:
    enum class Wave : int { Sine, Triangle, SawUp, SawDown, Square, Spike, Random };
    enum class RandomType : int { Fast, Slow };

    explicit Lfo(std::uint32_t seed, InstructionSet instructions = widestInstructionSet());

    // Normalised values, 0..1.
    void setType(double normalised) noexcept;
    void setFilter(double normalised) noexcept;
    void setWidth(double normalised) noexcept;
    void setRate(double normalised) noexcept;
    void setRandomType(double normalised) noexcept;
    void setRandomAmount(double normalised) noexcept { randomAmount_.set(normalised); }
    void setSpread(double normalised) noexcept;

    /// Frames per second. The phases follow at once, a filter when what it depends on is set again
    /// or at `reinitialise`.
    void setSampleRate(double sampleRateHz) noexcept;

    /// Back to phase 0 with new random waves; ends the ramp of the spread.
    void reinitialise(std::uint32_t seed) noexcept;

    void tick(const ControlTick& tick) noexcept {
        state_.spread = ticked(state_.spread, spread_.get(), tick.slow, tick);
    }

    /// Puts the wave and the random walk at `phaseCycles` of a cycle.
    void lockPhase(double phaseCycles) noexcept;

    /// @param rateHz rate of each frame
    void process(const MonoStretch& rateHz, int frames, LfoOutput& output) noexcept;

    [[nodiscard]] Wave wave() const noexcept { return static_cast<Wave>(type_.get()); }
    [[nodiscard]] double normalisedRate() const noexcept { return rate_.get(); }

    /// Coefficient of the LFO's low-pass at the last `process`; the cut-off path uses it three
    /// times.
    [[nodiscard]] double filterCoefficient() const noexcept { return filterCoefficient_; }

    /// Low-pass over the random values: direct form I, a0 = 1.
    struct Biquad {
        double b0 = 0.0, b1 = 0.0, b2 = 0.0, a1 = 0.0, a2 = 0.0;
    };

    struct State {
        double phase = 0.0;       ///< of the wave, in table steps
        double randomPhase = 0.0; ///< of the random walk, in table steps
        double spread = 0.0;      ///< -1..1: half a cycle either way
        double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
        double smoothed[2] = {-1.0, -1.0};
        RandomWaves random;
    };

    struct Controls {
        Wave wave = Wave::Sine;
        RandomType randomType = RandomType::Fast;
        double width = 1.0, inverseWidth = 1.0;
        double randomAmount = 0.0;
        double phaseScale = 0.0;  ///< table steps a frame at 1 Hz
        double randomScale = 0.0; ///< random steps a frame, at 1 Hz where it follows the rate
        bool randomFollowsRate = true;
        double smoothing = 1.0;
        Biquad biquad;
        const LfoWaves* waves = nullptr;
    };

private:
    enum class Group { Filter, RandomFilter };

    void deriveChanged() noexcept;
    void deriveFilter() noexcept;
    void deriveRandomFilter() noexcept;

    const StageTable& stages_;
    const LfoWaves& waves_;
    double sampleRateHz_ = kStartRateHz;

    // Written by any thread, read by audio.
    Relaxed<int> type_{0}, randomType_{0};
    Relaxed<double> width_{1.0}, rate_{0.0}, filter_{0.5};
    Relaxed<double> randomAmount_{0.0}, spread_{0.0};
    ChangeMarks<Group> changes_;

    // Derived from them.
    double filterCoefficient_ = 1.0;
    Biquad randomFilter_;

    State state_;
};

} // namespace pedl
