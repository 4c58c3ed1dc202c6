#pragma once

#include "tests/reference/PlainTypes.h"

namespace pedl::reference {

/// Peak limiter with a soft knee, frame by frame.
class PlainLimiter {
public:
    explicit PlainLimiter(const Settings& settings) : set_(settings) { setSampleRate(44100.0); }

    void setSampleRate(double sampleRateHz);
    void reset();
    void startBlock();
    void process(Stereo& frame);
    [[nodiscard]] double gain() const { return gain_; }

private:
    const Settings& set_;
    double sampleRateHz_ = 44100.0;
    Glide drive_{2.0, 2.0};
    double smoothing_ = 1.0, attack_ = 1.0, release_ = 1.0;
    double envelope_ = 0.0, gain_ = 1.0;
};

/// Driven hyperbolic tangent, frame by frame.
class PlainSaturator {
public:
    explicit PlainSaturator(const Settings& settings) : set_(settings) {}

    void setSampleRate(double sampleRateHz);
    void reset() { peak_ = 0.0; }
    void startBlock();
    void process(Stereo& frame);
    double readMeter();

private:
    const Settings& set_;
    Glide drive_{1.0, 1.0};
    double smoothing_ = 1.0;
    double peak_ = 0.0;
};

} // namespace pedl::reference
