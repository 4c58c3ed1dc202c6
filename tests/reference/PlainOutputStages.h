#pragma once

#include "tests/reference/PlainTypes.h"

namespace pedl::reference {

/// Peak limiter with a soft knee, frame by frame.
class PlainLimiter {
public:
    PlainLimiter() { setSampleRate(44100.0); }

    void setLevel(double normalised);
    void setSampleRate(double sampleRateHz);
    void reset();
    void process(Stereo& frame);
    [[nodiscard]] double gain() const { return gain_; }

private:
    double sampleRateHz_ = 44100.0;
    Glide drive_{2.0, 2.0};
    double smoothing_ = 1.0, attack_ = 1.0, release_ = 1.0;
    double envelope_ = 0.0, gain_ = 1.0;
};

/// Driven hyperbolic tangent, frame by frame.
class PlainSaturator {
public:
    void setDrive(double normalised);
    void setOff(int isOff) { isOff_ = isOff; }
    void setSampleRate(double sampleRateHz);
    void reset() { peak_ = 0.0; }
    void process(Stereo& frame);
    double readMeter();

private:
    Glide drive_{1.0, 1.0};
    double smoothing_ = 1.0;
    double peak_ = 0.0;
    int isOff_ = 0;
};

} // namespace pedl::reference
