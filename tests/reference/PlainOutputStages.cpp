#include "tests/reference/PlainOutputStages.h"

namespace pedl::reference {

void PlainLimiter::startBlock() {
    const double db = (1.0 - std::pow(set_.of(kLimiterTreshold), 1.5145731728)) * 30.0 - 21.0;
    drive_.target = 1.0 / std::pow(10.0, db / 20.0);
}

void PlainLimiter::setSampleRate(double sampleRateHz) {
    // With the rate held until now: the first resume still smooths the drive as if at 44100 Hz.
    smoothing_ = 1.0 - std::exp(-10.0 * kPi / sampleRateHz_);
    sampleRateHz_ = std::clamp(sampleRateHz, 44100.0, 192000.0);
    attack_ = settlingIn(sampleRateHz_ * 5.0 * 0.001);
    release_ = settlingIn(sampleRateHz_ * 50.0 * 0.001);
    reset();
}

void PlainLimiter::reset() {
    startBlock();
    gain_ = 1.0;
    drive_.snap();
    envelope_ = 0.0;
}

void PlainLimiter::process(Stereo& frame) {
    drive_.stepFlushed(smoothing_);
    const double peak = std::max(std::abs(frame[0]), std::abs(frame[1])) * drive_.value;
    const double rise = peak - envelope_;
    if (rise > 0.0)
        envelope_ += rise * attack_;
    const double t = peak * 0.999 + 0.001 - envelope_;
    if (rise < 0.0)
        envelope_ -= std::min(-0.0333 * rise, t * t * t * t * release_ * 0.145);
    envelope_ = std::max(envelope_, 0.001);
    gain_ = envelope_ >= 2.0 ? 1.0 / envelope_ : 1.0 - envelope_ / 4.0;
    frame[0] *= gain_;
    frame[1] *= gain_;
}

void PlainSaturator::startBlock() {
    const double db = std::pow(set_.of(kSoftSatTreshold), 1.3219280949) * 30.0 - 12.0;
    drive_.target = std::pow(10.0, db / 20.0);
}

void PlainSaturator::setSampleRate(double sampleRateHz) {
    peak_ = 0.0;
    startBlock();
    drive_.snap();
    smoothing_ = 1.0 - std::exp(-10.0 * kPi / sampleRateHz);
}

void PlainSaturator::process(Stereo& frame) {
    drive_.stepFlushed(smoothing_);
    const Stereo driven{frame[0] * drive_.value, frame[1] * drive_.value};
    peak_ = std::max(peak_, std::abs(driven[0]) + std::abs(driven[1]));
    frame = {std::tanh(driven[0]) / drive_.value, std::tanh(driven[1]) / drive_.value};
}

double PlainSaturator::readMeter() {
    const double peak = set_.isOn(kSoftSatDefeat) == 0 ? 0.0 : peak_;
    peak_ = 0.0;
    return peak;
}

} // namespace pedl::reference
