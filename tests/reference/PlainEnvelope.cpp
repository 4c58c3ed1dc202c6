#include "tests/reference/PlainEnvelope.h"

namespace pedl::reference {

namespace {

/// Of the attack's shape, and what the two smoothers run slower by there.
constexpr std::array<double, 14> kShape{0.0, 0.1, 0.2, 0.3,  0.4,  0.5,   0.6,
                                        0.7, 0.8, 0.9, 0.95, 0.99, 0.999, 1.0};
constexpr std::array<double, 14> kFirst{0.733, 0.737, 0.745, 0.755,  0.767, 0.787, 0.811,
                                        0.842, 0.897, 0.97,  1.0295, 1.1,   1.145, 1.238};
constexpr std::array<double, 14> kSecond{10000.0, 50.0, 20.0, 11.0, 7.4,   5.0,  3.7,
                                         2.9,     2.2,  1.78, 1.58, 1.423, 1.35, 1.238};

double stretch(const std::array<double, 14>& at, double shape) {
    std::size_t i = 0;
    while (kShape[i + 1] < shape)
        ++i;
    return at[i] + (at[i + 1] - at[i]) * ((shape - kShape[i]) / (kShape[i + 1] - kShape[i]));
}

} // namespace

float PlainEnvelope::bentAttack() const {
    return std::pow(static_cast<float>(set_.of(kEnvAttack)), 0.722F);
}

void PlainEnvelope::updateHoldLength() {
    const float t = std::pow(2000.0F, bentAttack());
    const float holdMs =
        7.279e-8F * t * t * t - 0.0002075F * t * t + 0.2643F * t + 0.3773F - 0.64139F;
    const double v = set_.of(kEnvAttackExtension);
    const double extension = v <= 0.5 ? 2.0 * v : 6.0 * v - 2.0;
    holdFrames_ = static_cast<std::int32_t>(static_cast<double>(std::max(0.0F, holdMs)) *
                                            extension * 0.001 * sampleRateHz_);
}

void PlainEnvelope::updateCoefficients() {
    const float a = bentAttack();
    const double attackMs = static_cast<double>(std::pow(2000.0F, a));
    const double releaseMs = 3.0 * std::pow(1000.0, std::pow(set_.of(kEnvRelease), 0.585));
    const double shape = std::min(static_cast<double>(2.0F * a), 1.0);
    for (std::size_t j = 0; j < 2; ++j) {
        const double perMs = -kPi * stretch(j == 0 ? kFirst : kSecond, shape) * 1000.0;
        attack_[j] = 1.0 - std::exp(perMs / (attackMs * sampleRateHz_));
        release_[j] = 1.0 - std::exp(perMs / (releaseMs * sampleRateHz_));
    }
}

void PlainEnvelope::updateDepth() {
    depthSlope_.target = 0.0;
    depthBase_.target = 1.0;
    if (set_.isOn(kDepthLFOByEnvDefeat) == 0)
        return;
    const double b = 2.0 * set_.of(kDepthLFOByEnv) - 1.0;
    if (b < 0.0) {
        depthSlope_.target = -4.0 * std::pow(std::abs(b), 1.4);
    } else {
        depthSlope_.target = 4.0 * std::pow(b, 1.4);
        depthBase_.target = std::max(0.0, 1.0 - std::pow(b, 1.4));
    }
}

void PlainEnvelope::startBlock(double modulation) {
    updateCoefficients();
    updateDepth();
    threshold_ = std::pow(63096.0, 1.0 - set_.of(kEnvThreshold));
    const double range = set_.of(kEnvRange);
    rangeOther_.target = 3.0 * range * range;
    rangeBelow_.target = 3.0 * std::sqrt(range);
    const double rest = 1.0 - set_.of(kGainByENV);
    const double exponent =
        set_.isOn(kGainByENVDefeat) == 0 ? 1.0 : 1.0 / (0.5 * std::pow(4.0, 2.0 * rest * rest));
    exponent_.target = modulation * exponent + (1.0 - modulation);
}

void PlainEnvelope::reinitialise() {
    startBlock(1.0); // whatever the modulation switch says: the exponent ramps from here
    for (Glide* glide : {&rangeOther_, &rangeBelow_, &depthSlope_, &depthBase_, &exponent_})
        glide->snap();
    stage1_ = stage2_ = mode() == Above ? 1.0 : mode() == Below ? 0.0 : 0.5;
    held_ = 0.0;
    sinceHeld_ = 0;
    makeup_ = 1.0;
}

void PlainEnvelope::tick(double slow, double offset) {
    rangeBelow_.step(slow, offset);
    exponent_.step(slow, offset);
    rangeOther_.step(slow, offset);
    updateMakeup();
}

void PlainEnvelope::updateMakeup() {
    makeup_ = 1.0;
    if (mode() == Below)
        return;
    const double range = rangeOther_.target;
    const double base = mode() == Above ? (std::max(1.0, threshold_ * 0.25) - 1.0) * range + 1.0
                                        : (threshold_ * 0.25 - 0.5) * range + 1.0;
    const double gain = base / std::pow(base, exponent_.value);
    // A squeezing setting is made good by the fourth root only: it is meant to sound quieter.
    makeup_ =
        exponent_.value < 1.0 ? std::sqrt(1.0 / gain) : std::sqrt(2.0 * std::sqrt(0.25 / gain));
}

void PlainEnvelope::smoothDepth(double perSample) {
    depthSlope_.stepFlushed(perSample);
    depthBase_.stepFlushed(perSample);
}

void PlainEnvelope::hold(double power) {
    if (power > held_) {
        held_ = power;
        sinceHeld_ = 0;
    } else if (sinceHeld_ > holdFrames_) {
        held_ = power;
    }
    ++sinceHeld_;
}

EnvelopeFrame PlainEnvelope::process(const Stereo& gained, double normalisedLfoRate) {
    double power = (gained[1] * gained[1] + gained[0] * gained[0]) * 0.707 * threshold_;
    if (mode() == Above)
        power = std::max(1.0, power);
    if (mode() == Below)
        power = std::min(1.0, power);
    hold(power);

    stage1_ = flushed(stage1_ + (held_ - stage1_) * (held_ > stage1_ ? attack_[0] : release_[0]));
    stage2_ =
        flushed(stage2_ + (stage1_ - stage2_) * (stage1_ > stage2_ ? attack_[1] : release_[1]));
    const double r = std::sqrt(stage2_);

    EnvelopeFrame frame;
    double gainBase = 1.0;
    if (mode() == Above) {
        const double x = std::max((r - 1.0) * rangeOther_.value + 1.0 - 0.0001, 0.0) + 0.0001;
        frame.level = std::log10(x);
        frame.cutoffInput = frame.level;
        gainBase = x;
    } else if (mode() == Below) {
        const double gainFloor = 0.248 - (63096.0 - threshold_) * 0.183 / 63096.0;
        const double z = (r - 1.0) * rangeBelow_.value + 2.0001 - 0.0002;
        const double x = (std::max(z, 0.0) + 0.0002) * 0.5;
        frame.level = -std::log10(x);
        frame.cutoffInput = std::log10(x); // falls with the level, unlike the other three outputs
        gainBase = std::max(x, gainFloor);
    } else {
        const double y = std::max(r - 0.1, 0.0) + 0.1;
        frame.level = std::log10(y) * rangeOther_.value;
        frame.cutoffInput = frame.level;
        gainBase = rangeOther_.value * y + 1.0;
    }

    const double depth = depthSlope_.value * frame.level + depthBase_.value;
    frame.lfoDepth = (std::abs(depth) - std::abs(depth - 1.0) + 1.0) * 0.5;
    const double rate = rateAmount() * frame.level * frame.level + normalisedLfoRate;
    frame.lfoRateHz = std::max(rate * 14.99 + 0.01, 0.01);
    frame.gain = gainBase / std::pow(gainBase, exponent_.value);
    return frame;
}

} // namespace pedl::reference
