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

    void setSampleRate(double sampleRateHz);
    void setThresholdMode(double normalised);
    void setThreshold(double normalised);
    void setAttack(float normalised);
    void setExtension(double normalised);
    void setRelease(double normalised);
    void setRange(double normalised);
    void setDepthSwitch(double normalised);
    void setDepthAmount(double normalised);
    void setGainSwitch(double normalised);
    void setGainAmount(double normalised);
    void setRateSwitch(double normalised) { rateSwitch_ = switchState(normalised); }
    void setRateAmount(double normalised) { rateAmount_ = 2.0 * normalised - 1.0; }

    /// -1..1; 0 while the switch is off.
    [[nodiscard]] double rateAmount() const { return rateSwitch_ != 0 ? rateAmount_ : 0.0; }
    [[nodiscard]] Mode mode() const { return mode_; }
    [[nodiscard]] double makeup() const { return makeup_; }

    void reinitialise();
    void startBlock(double modulation);
    void tick(double slow, double offset);
    void smoothDepth(double perSample);
    EnvelopeFrame process(const Stereo& gained, double normalisedLfoRate);

private:
    void setShape(double input);
    void updateCoefficients();
    void updateHoldLength();
    void updateDepth();
    void updateExponent();
    void updateMakeup();
    void hold(double power);

    double sampleRateHz_ = 44100.0;
    Mode mode_ = Above;
    double threshold_ = 1.0, gainFloor_ = 0.248;

    float attackMs_ = 1.0F;
    double releaseMs_ = 3.0;
    double shapeInput_ = 0.0, shape_[2] = {0.733, 10000.0};
    double attack_[2] = {}, release_[2] = {};
    double stage1_ = 0.0, stage2_ = 0.0;

    double holdMs_ = 0.0, extension_ = 0.0;
    std::int32_t holdFrames_ = 0;
    double held_ = 0.0;
    std::int64_t sinceHeld_ = 0;

    Glide rangeOther_, rangeBelow_;
    int depthSwitch_ = 0, gainSwitch_ = 0, rateSwitch_ = 0;
    double depthAmount_ = 0.5, gainAmount_ = 0.5, rateAmount_ = 0.0;
    Glide depthSlope_{0.0, 0.0}, depthBase_{1.0, 1.0};
    double rawExponent_ = 1.0;
    Glide exponent_{1.0, 1.0};
    double makeup_ = 1.0;
};

} // namespace pedl::reference
