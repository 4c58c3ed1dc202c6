#include "tests/reference/PlainLfo.h"

#include <bit>

namespace pedl::reference {

namespace {

/// 0..32767, the same sequence on every system.
class RandomIntegers {
public:
    explicit RandomIntegers(std::uint32_t seed) : state_(seed) {}
    double next() {
        state_ = state_ * 214013U + 2531011U;
        return static_cast<double>((state_ >> 16) & 32767U);
    }

private:
    std::uint32_t state_;
};

std::size_t wrapped(double position) {
    const auto whole = static_cast<std::int64_t>(position); // towards zero, then the mask
    return static_cast<std::size_t>(whole & (PlainLfo::kSteps - 1));
}

double fraction(double position) {
    return position - std::trunc(position);
}

/// 16^y after a fashion: straight lines between the powers of two. The randomisation sounds of it.
double roughPowerOf16(double y) {
    const auto upper = static_cast<std::int64_t>(4255105.0 * y) + 1072632447;
    return std::bit_cast<double>(static_cast<std::uint64_t>(upper) << 32);
}

void advance(double& phase, double increment) {
    phase += increment;
    if (phase >= PlainLfo::kSteps)
        phase -= PlainLfo::kSteps;
    if (phase < 0.0)
        phase = 0.0;
}

} // namespace

PlainLfo::PlainLfo(const Settings& settings, std::uint32_t seed) : set_(settings) {
    fillWaves();
    fillRandom(seed);
}

void PlainLfo::fillWaves() {
    for (int i = 0; i < kSteps; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const int inHalf = i % 1024;
        const double hill = (inHalf < 512 ? inHalf : 1024 - inHalf) / 512.0;
        sine_[at] = 0.5 + 0.5 * std::sin(2.0 * kPi * i / kSteps);
        triangle_[at] = 0.5 + 0.5 * (i < 1024 ? hill : -hill);
        saw_[at] = 0.5 + 0.5 * (i < 1024 ? i / 1024.0 : (i - 1024) / 1024.0 - 1.0);
    }
    for (std::size_t j = 0; j < 102; ++j) {
        const double rise = static_cast<double>(j) * 10.0 / 1024.0;
        spike_[j] = rise;
        spike_[102 + j] = 1.0 - rise;
        spike_[1024 + j] = -rise;
        spike_[1126 + j] = rise - 1.0;
    }
}

void PlainLfo::fillRandom(std::uint32_t seed) {
    RandomIntegers random(seed);
    for (double& value : randomValues_) {
        const double x = 2.0 * random.next() / 32767.0 - 1.0;
        value = 0.5 + 0.5 * std::copysign(std::pow(std::abs(x), 0.7), x);
    }
    randomSteps_[0] = random.next() / 32767.0; // from 0 up, the others from -1
    for (std::size_t i = 1; i < randomSteps_.size(); ++i) {
        do {
            randomSteps_[i] = 2.0 * random.next() / 32767.0 - 1.0;
        } while (std::abs(std::abs(randomSteps_[i - 1]) - std::abs(randomSteps_[i])) < 0.15);
    }
}

void PlainLfo::startBlock() {
    width_ = 0.125 * std::pow(64.0, 1.0 - set_.of(kLFOWidth));
    const double offset = 1.0 - 2.0 * set_.of(kLFOSpread);
    spread_.target = std::copysign(offset * offset, offset);
}

void PlainLfo::updateFilter() {
    const double cornerHz =
        10.0 * std::pow(10.0, 1.0 - set_.of(kLFOFilter)) + 15.0 * set_.of(kLFOFreq);
    filterCoefficient_ = 1.0 - std::exp(-2.0 * kPi * cornerHz / sampleRateHz_);
}

void PlainLfo::updateRandomSmoothing() {
    const double omega =
        2.0 * kPi * (2.0 * 1.41) * (0.01 + 14.99 * set_.of(kLFOFreq)) / sampleRateHz_;
    const double alpha = std::sin(omega) / 0.4;
    const double a0 = 1.0 + alpha;
    a1_ = -2.0 * std::cos(omega) / a0;
    a2_ = (1.0 - alpha) / a0;
    b0_ = b2_ = (1.0 - std::cos(omega)) / 2.0 / a0;
    b1_ = (1.0 - std::cos(omega)) / a0;
}

void PlainLfo::reinitialise(std::uint32_t seed) {
    startBlock();
    spread_.snap();
    setPhases(0.0);
    updateFilter();
    updateRandomSmoothing();
    fillRandom(seed);
    smoothed_ = {-1.0, -1.0};
}

double PlainLfo::smoothRandom(double value) {
    const double y = b0_ * value + b1_ * x1_ + b2_ * x2_ - a1_ * y1_ - a2_ * y2_ - 1e-36 + 1e-36;
    x2_ = x1_;
    x1_ = value;
    y2_ = y1_;
    y1_ = y;
    return y;
}

double PlainLfo::randomValueAt(double position) const {
    const std::size_t at = wrapped(position);
    const double share = fraction(position);
    return (1.0 - share) * randomValues_[at] + share * randomValues_[(at + 1) % kSteps];
}

double PlainLfo::skewed(double u) const {
    return width_ > 1.0 ? 2.0 * powerFromZero(u, width_) - 1.0
                        : 1.0 - 2.0 * powerFromZero(1.0 - u, 1.0 / width_);
}

double PlainLfo::squared(double u) const {
    const bool isLow =
        width_ > 1.0 ? powerFromZero(u, width_) < 0.5 : powerFromZero(1.0 - u, 1.0 / width_) > 0.5;
    return isLow ? -1.0 : 1.0;
}

Stereo PlainLfo::rawWaves() const {
    const std::size_t left = wrapped(phase_);
    const std::size_t right = wrapped(phase_ + spread_.value * 1024.0);
    switch (wave()) {
    case Triangle:
        return {skewed(triangle_[left]), skewed(triangle_[right])};
    case SawUp:
        return {skewed(saw_[left]), skewed(saw_[right])};
    case SawDown:
        return {skewed(1.0 - saw_[left]), skewed(1.0 - saw_[right])};
    case Square:
        return {squared(sine_[left]), squared(sine_[right])};
    case Spike: {
        const double uLeft = spike_[left], uRight = spike_[right];
        // Both channels' lower half is the right one's: the spikes pull apart unevenly.
        const double lower = -std::pow(std::abs(uRight), 1.0 / width_);
        return {uLeft > 0.0 ? std::pow(uLeft, width_) : lower,
                uRight > 0.0 ? std::pow(uRight, width_) : lower};
    }
    case Random:
        return {skewed(randomValueAt(randomPhase_)),
                skewed(randomValueAt(std::max(randomPhase_ + spread_.value, 0.0)))};
    case Sine:
        break;
    }
    return {skewed(sine_[left]), skewed(sine_[right])};
}

Stereo PlainLfo::process(double rateHz) {
    const std::size_t at = wrapped(randomPhase_);
    const double share = fraction(randomPhase_);
    const double y = smoothRandom(randomValues_[at]);
    const double step =
        0.9 - 0.9 * ((1.0 - share) * randomSteps_[at] + share * randomSteps_[(at + 1) % kSteps]);

    const double phaseScale = kSteps / sampleRateHz_;
    double increment = 0.0, randomIncrement = 0.0;
    const double amount = set_.of(kLFORndmization);
    if (set_.isOn(kLFORndmizationType) != 0) {
        increment = ((1.0 - amount) * (1.0 - step) + step) * rateHz * phaseScale;
        randomIncrement = 0.625 / sampleRateHz_;
    } else {
        const double moved = rateHz * roughPowerOf16(y) * 0.25 - rateHz;
        increment = (rateHz + amount * moved) * phaseScale;
        randomIncrement = 8.0 / sampleRateHz_ * rateHz;
    }
    if (wave() == Random)
        randomIncrement = 4.0 / sampleRateHz_ * rateHz;

    const Stereo raw = rawWaves();
    for (std::size_t c = 0; c < 2; ++c)
        smoothed_[c] = flushed(smoothed_[c] + (raw[c] - smoothed_[c]) * filterCoefficient_ * 0.3);
    advance(phase_, increment);
    advance(randomPhase_, randomIncrement);
    return raw;
}

} // namespace pedl::reference
