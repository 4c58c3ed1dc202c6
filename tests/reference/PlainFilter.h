#pragma once

#include "tests/reference/PlainTypes.h"

#include <vector>

namespace pedl::reference {

/// Multimode filter, frame by frame: morphing zeros, one or two stages, a clip in each recursion.
class PlainFilter {
public:
    explicit PlainFilter(const Settings& settings);

    void setSampleRate(double sampleRateHz);
    void reset();
    void startBlock();
    void process(Stereo& frame, const Stereo& cutoffHz);

private:
    struct Stage {
        double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
    };
    struct Coefficients {
        double inputScale, numeratorScale, b0, b1, b2, a1, a2, clipScale;
    };

    void moveZeros(std::size_t channel, double cutoffHz);
    [[nodiscard]] Coefficients coefficients(std::size_t channel, double cutoffHz) const;
    static double runStage(Stage& stage, const Coefficients& k, double input);

    const Settings& set_;
    double sampleRateHz_ = 44100.0;
    int glideFrames_ = 661;
    double smoothing_ = 1.0; // 10 Hz
    Glide type_, q_{0.3, 0.3}, slope_;
    double saturationScale_ = 0.0;
    std::array<Stereo, 2> zeros_{}; // per channel z1, z2
    std::array<std::array<Stage, 2>, 2> stages_{};
    std::vector<double> highExponent_, lowExponent_; // one entry a hertz
    std::vector<double> sine_, cosine_;              // 20..20000 Hz in equal steps
};

} // namespace pedl::reference
