#pragma once

#include "tests/reference/PlainTypes.h"

#include <cstdint>

namespace pedl::reference {

/// What one frame's envelope does to the rest of the chain.
struct EnvelopeFrame {
    double level = 0.0;       ///< logarithmic, what the meter shows
    double lfoDepth = 1.0;    ///< 0..1
    double cutoffInput = 0.0; ///< to be multiplied by the smoothed amount
    double lfoRateHz = 0.01;
    double gain = 1.0; ///< linear, without the makeup
};

/// Envelope follower, frame by frame.
class PlainEnvelope {
public:
    enum Mode { Above, Below, Around };

    explicit PlainEnvelope(const Settings& settings) : set_(settings) {}

    void setSampleRate(double sampleRateHz) { sampleRateHz_ = sampleRateHz; }
    /// To be called when the attack, its extension or the release is set: a new sample rate leaves
    /// the hold's length in frames as it is.
    void updateHoldLength();

    /// -1..1; 0 while the switch is off.
    [[nodiscard]] double rateAmount() const {
        return set_.isOn(kRateLFOByEnvDefeat) != 0 ? 2.0 * set_.of(kRateLFOByEnv) - 1.0 : 0.0;
    }
    [[nodiscard]] Mode mode() const { return static_cast<Mode>(set_.state(kEnvThresholdMode)); }
    [[nodiscard]] double makeup() const { return makeup_; }

    void reinitialise();
    void startBlock(double modulation);
    void tick(double slow, double offset);
    void smoothDepth(double perSample);
    EnvelopeFrame process(const Stereo& gained, double normalisedLfoRate);

private:
    [[nodiscard]] float bentAttack() const;
    void updateCoefficients();
    void updateDepth();
    void updateMakeup();
    void hold(double power);

    const Settings& set_;
    double sampleRateHz_ = 44100.0;
    double threshold_ = 1.0;
    double attack_[2] = {}, release_[2] = {};
    double stage1_ = 0.0, stage2_ = 0.0;

    std::int32_t holdFrames_ = 0;
    double held_ = 0.0;
    std::int64_t sinceHeld_ = 0;

    Glide rangeOther_, rangeBelow_;
    Glide depthSlope_{0.0, 0.0}, depthBase_{1.0, 1.0};
    Glide exponent_{1.0, 1.0};
    double makeup_ = 1.0;
};

} // namespace pedl::reference
