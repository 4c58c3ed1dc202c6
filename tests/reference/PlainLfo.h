#pragma once

#include "tests/reference/PlainTypes.h"

#include <array>
#include <cstdint>

namespace pedl::reference {

/// Low-frequency oscillator, frame by frame.
class PlainLfo {
public:
    static constexpr int kSteps = 2048; ///< table steps in a cycle
    enum Wave { Sine, Triangle, SawUp, SawDown, Square, Spike, Random };

    PlainLfo(const Settings& settings, std::uint32_t seed);

    void setSampleRate(double sampleRateHz) { sampleRateHz_ = sampleRateHz; }
    /// To be called when the filter or the rate is set, the second one for the rate alone: a new
    /// sample rate leaves the filters as they are.
    void updateFilter();
    void updateRandomSmoothing();

    void reinitialise(std::uint32_t seed);
    void setPhases(double steps) { phase_ = randomPhase_ = steps; }
    void startBlock();
    void tick(double slow, double offset) { spread_.step(slow, offset); }

    /// The raw waves of this frame; moves the smoothed outputs and the phases.
    Stereo process(double rateHz);

    [[nodiscard]] Wave wave() const {
        return static_cast<Wave>(static_cast<int>(6.0 * set_.of(kLFOType)));
    }
    [[nodiscard]] double filterCoefficient() const { return filterCoefficient_; }
    [[nodiscard]] const Stereo& smoothed() const { return smoothed_; }

private:
    using Table = std::array<double, kSteps>;

    void fillWaves();
    void fillRandom(std::uint32_t seed);
    double smoothRandom(double value);
    [[nodiscard]] double randomValueAt(double position) const;
    [[nodiscard]] double skewed(double u) const;
    [[nodiscard]] double squared(double u) const;
    [[nodiscard]] Stereo rawWaves() const;

    const Settings& set_;
    double sampleRateHz_ = 44100.0;
    double width_ = 1.0;
    double filterCoefficient_ = 1.0;
    Glide spread_;

    Table sine_{}, triangle_{}, saw_{}, spike_{}, randomValues_{}, randomSteps_{};
    double b0_ = 0.0, b1_ = 0.0, b2_ = 0.0, a1_ = 0.0, a2_ = 0.0;
    double x1_ = 0.0, x2_ = 0.0, y1_ = 0.0, y2_ = 0.0;

    double phase_ = 0.0, randomPhase_ = 0.0; // in table steps
    Stereo smoothed_{-1.0, -1.0};
};

} // namespace pedl::reference
