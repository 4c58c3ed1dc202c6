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

    explicit PlainLfo(std::uint32_t seed);

    void setSampleRate(double sampleRateHz) { sampleRateHz_ = sampleRateHz; }
    void setWave(double normalised) {
        wave_ = static_cast<Wave>(static_cast<int>(6.0 * normalised));
    }
    void setFilter(double normalised);
    void setWidth(double normalised);
    void setRate(double normalised);
    void setSpread(double normalised);
    void setRandomType(double normalised) { isSlowRandom_ = switchState(normalised) != 0; }
    void setRandomAmount(double normalised) { randomAmount_ = normalised; }

    void reinitialise(std::uint32_t seed);
    void setPhases(double steps) { phase_ = randomPhase_ = steps; }
    void tick(double slow, double offset) { spread_.step(slow, offset); }

    /// The raw waves of this frame; moves the smoothed outputs and the phases.
    Stereo process(double rateHz);

    [[nodiscard]] Wave wave() const { return wave_; }
    [[nodiscard]] double normalisedRate() const { return normalisedRate_; }
    [[nodiscard]] double filterCoefficient() const { return filterCoefficient_; }
    [[nodiscard]] const Stereo& smoothed() const { return smoothed_; }

private:
    using Table = std::array<double, kSteps>;

    void fillWaves();
    void fillRandom(std::uint32_t seed);
    void updateFilter();
    void updateRandomSmoothing();
    double smoothRandom(double value);
    [[nodiscard]] double randomValueAt(double position) const;
    [[nodiscard]] double skewed(double u) const;
    [[nodiscard]] double squared(double u) const;
    [[nodiscard]] Stereo rawWaves() const;

    double sampleRateHz_ = 44100.0;
    Wave wave_ = Sine;
    double width_ = 1.0;
    double filter_ = 0.5, filterCoefficient_ = 1.0;
    double normalisedRate_ = 0.0;
    Glide spread_;
    bool isSlowRandom_ = false;
    double randomAmount_ = 0.0;

    Table sine_{}, triangle_{}, saw_{}, spike_{}, randomValues_{}, randomSteps_{};
    double b0_ = 0.0, b1_ = 0.0, b2_ = 0.0, a1_ = 0.0, a2_ = 0.0;
    double x1_ = 0.0, x2_ = 0.0, y1_ = 0.0, y2_ = 0.0;

    double phase_ = 0.0, randomPhase_ = 0.0; // in table steps
    Stereo smoothed_{-1.0, -1.0};
};

} // namespace pedl::reference
