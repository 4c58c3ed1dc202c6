#include "engine/EnvelopeFollower.h"

#include "engine/Stages.h"
#include "engine/SwitchState.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace pedl {

namespace {

/// Threshold factor at the lowest threshold: 96 dB.
constexpr double kLargestThresholdFactor = 63096.0;

/// How much slower than the stated time the two smoothers run, by attack shape: small shapes leave
/// the second one nearly transparent, 1 makes both equal.
struct ShapeKnot {
    double shape, stretch1, stretch2;
};
// clang-format off
constexpr std::array<ShapeKnot, 14> kShapeKnots{{
    {0.0,   0.733,  10000.0},
    {0.1,   0.737,  50.0},
    {0.2,   0.745,  20.0},
    {0.3,   0.755,  11.0},
    {0.4,   0.767,  7.4},
    {0.5,   0.787,  5.0},
    {0.6,   0.811,  3.7},
    {0.7,   0.842,  2.9},
    {0.8,   0.897,  2.2},
    {0.9,   0.97,   1.78},
    {0.95,  1.0295, 1.58},
    {0.99,  1.1,    1.423},
    {0.999, 1.145,  1.35},
    {1.0,   1.238,  1.238},
}};
// clang-format on

/// Coefficient of one smoother: `stretch` times the corner of a pole that rises in `timeMs`.
[[nodiscard]] double timeCoefficient(double stretch, double timeMs, double sampleRateHz) noexcept {
    constexpr double kPi = 3.141592653589793;
    return 1.0 - std::exp(-kPi * stretch * 1000.0 / (timeMs * sampleRateHz));
}

/// Level to which the smoothers are emptied: the threshold, silence, or half way.
[[nodiscard]] double restPower(EnvelopeFollower::ThresholdMode mode) noexcept {
    switch (mode) {
    case EnvelopeFollower::ThresholdMode::Above:
        return 1.0;
    case EnvelopeFollower::ThresholdMode::Below:
        return 0.0;
    case EnvelopeFollower::ThresholdMode::Around:
        break;
    }
    return 0.5;
}

} // namespace

EnvelopeFollower::EnvelopeFollower(InstructionSet instructions) : stages_(stagesFor(instructions)) {
    setAttackShape(0.0);
}

void EnvelopeFollower::setAttackTime(double attackMs) noexcept {
    attackMs_.set(attackMs);
    const double rate = sampleRateHz_.get();
    attack1_.set(timeCoefficient(stretch1_.get(), attackMs, rate));
    attack2_.set(timeCoefficient(stretch2_.get(), attackMs, rate));
}

void EnvelopeFollower::setReleaseTime(double releaseMs) noexcept {
    releaseMs_.set(releaseMs);
    const double rate = sampleRateHz_.get();
    release1_.set(timeCoefficient(stretch1_.get(), releaseMs, rate));
    release2_.set(timeCoefficient(stretch2_.get(), releaseMs, rate));
}

void EnvelopeFollower::setAttackShape(double shape) noexcept {
    const double inside = std::min(shape, 1.0);
    shape_.set(inside);
    for (std::size_t i = 0; i + 1 < kShapeKnots.size(); ++i) {
        const ShapeKnot& low = kShapeKnots[i];
        const ShapeKnot& high = kShapeKnots[i + 1];
        if (low.shape <= inside && inside <= high.shape) {
            const double way = (inside - low.shape) / (high.shape - low.shape);
            stretch1_.set(low.stretch1 + (high.stretch1 - low.stretch1) * way);
            stretch2_.set(low.stretch2 + (high.stretch2 - low.stretch2) * way);
            break;
        }
    }
    setAttackTime(attackMs_.get());
    setReleaseTime(releaseMs_.get());
}

void EnvelopeFollower::setHoldTime(double holdMs) noexcept {
    holdMs_.set(holdMs);
    updateHoldLength();
}

void EnvelopeFollower::setExtension(double normalised) noexcept {
    extension_.set(normalised <= 0.5 ? 2.0 * normalised : 6.0 * normalised - 2.0);
    updateHoldLength();
}

void EnvelopeFollower::updateHoldLength() noexcept {
    const double frames = holdMs_.get() * extension_.get() * 0.001 * sampleRateHz_.get();
    holdFrames_.set(static_cast<std::int32_t>(frames));
}

void EnvelopeFollower::setRange(double normalised) noexcept {
    range_.set(3.0 * normalised * normalised);
    rangeBelow_.set(3.0 * std::sqrt(normalised));
}

void EnvelopeFollower::setThreshold(double normalised) noexcept {
    const double factor = std::pow(kLargestThresholdFactor, 1.0 - normalised);
    thresholdFactor_.set(factor);
    belowFloor_.set(0.248 - (kLargestThresholdFactor - factor) * 0.183 / kLargestThresholdFactor);
    updateGainExponent();
}

void EnvelopeFollower::setMode(double normalised) noexcept {
    mode_.set(threeWayState(normalised));
    updateDepth();
    updateGainExponent();
}

void EnvelopeFollower::setDepthAmount(double normalised) noexcept {
    depthAmount_.set(normalised);
    updateDepth();
}

void EnvelopeFollower::setDepthSwitch(double normalised) noexcept {
    depthSwitch_.set(switchState(normalised));
    updateDepth();
}

void EnvelopeFollower::updateDepth() noexcept {
    if (depthSwitch_.get() == 0.0) {
        depthSlope_.set(0.0);
        depthRest_.set(1.0);
        return;
    }
    const double amount = 2.0 * depthAmount_.get() - 1.0;
    const double bent = std::pow(std::abs(amount), 1.4);
    depthSlope_.set(amount < 0.0 ? -4.0 * bent : 4.0 * bent);
    depthRest_.set(amount < 0.0 ? 1.0 : std::max(0.0, 1.0 - bent));
}

void EnvelopeFollower::setGainAmount(double normalised) noexcept {
    gainAmount_.set(normalised);
    updateGainExponent();
}

void EnvelopeFollower::setGainSwitch(double normalised) noexcept {
    gainSwitch_.set(switchState(normalised));
    updateGainExponent();
}

void EnvelopeFollower::updateGainExponent() noexcept {
    if (gainSwitch_.get() == 0.0) {
        gainExponent_.set(1.0);
        return;
    }
    const double rest = 1.0 - gainAmount_.get();
    gainExponent_.set(1.0 / (0.5 * std::pow(4.0, 2.0 * rest * rest)));
}

void EnvelopeFollower::setRateAmount(double normalised) noexcept {
    rateNormalised_.set(normalised);
    updateRateAmount();
}

void EnvelopeFollower::setRateSwitch(double normalised) noexcept {
    rateSwitch_.set(switchState(normalised));
    updateRateAmount();
}

void EnvelopeFollower::updateRateAmount() noexcept {
    rateAmount_.set(rateSwitch_.get() == 0.0 ? 0.0 : 2.0 * rateNormalised_.get() - 1.0);
}

void EnvelopeFollower::setCutoffAmount(double normalised) noexcept {
    cutoffAmount_.set((2.0 * normalised - 1.0) * 0.5);
}

void EnvelopeFollower::setCutoffSwitch(double normalised) noexcept {
    cutoffSwitch_.set(switchState(normalised));
}

void EnvelopeFollower::setSampleRate(double sampleRateHz) noexcept {
    sampleRateHz_.set(sampleRateHz);
    setAttackShape(shape_.get());
}

void EnvelopeFollower::reinitialise() noexcept {
    smoothedRange_ = range_.get();
    smoothedRangeBelow_ = rangeBelow_.get();
    state_.depthSlope.snap(depthSlope_.get());
    state_.depthRest.snap(depthRest_.get());
    smoothedGainExponent_ = gainExponent_.get();
    smoothedCutoffAmount_ = cutoffAmount_.get();
    state_.first = state_.second = restPower(mode());
    state_.held = 0.0;
    state_.heldFrames = 0;
    makeup_ = 1.0;
}

void EnvelopeFollower::tick(const ControlTick& tick, double modulation) noexcept {
    smoothedRangeBelow_ = ticked(smoothedRangeBelow_, rangeBelow_.get(), tick.slow, tick);
    const double exponent = modulation * gainExponent_.get() + (1.0 - modulation);
    smoothedGainExponent_ = ticked(smoothedGainExponent_, exponent, tick.slow, tick);
    const double cutoffAmount = modulation * cutoffSwitch_.get() * cutoffAmount_.get();
    smoothedCutoffAmount_ = ticked(smoothedCutoffAmount_, cutoffAmount, tick.slow, tick);
    smoothedRange_ = ticked(smoothedRange_, range_.get(), tick.slow, tick);
    makeup_ = makeupFor(smoothedGainExponent_);
}

double EnvelopeFollower::makeupFor(double exponent) const noexcept {
    constexpr double kTypicalPower = 0.25; // of programme material, in units of full scale
    const double typical = thresholdFactor_.get() * kTypicalPower;
    double base = 0.0;
    switch (mode()) {
    case ThresholdMode::Below:
        return 1.0;
    case ThresholdMode::Above:
        base = (std::max(1.0, typical) - 1.0) * range_.get() + 1.0;
        break;
    case ThresholdMode::Around:
        base = (typical - 0.5) * range_.get() + 1.0;
        break;
    }
    // The lowest typical power is 0.25 and the largest range 3: the base can come down to 0.25.
    base = std::max(base, std::numeric_limits<double>::min());
    const double gain = base / std::pow(base, exponent);
    // An expanding setting is taken back in full by the square root, a compressing one only by the
    // fourth root: compressed material may get louder, which is what one turns it up for.
    return exponent < 1.0 ? std::sqrt(1.0 / gain) : std::sqrt(2.0 * std::sqrt(0.25 / gain));
}

void EnvelopeFollower::process(const StereoStretch& gained, double normalisedRate, double perFrame,
                               int frames, EnvelopeOutput& output) noexcept {
    Controls controls;
    controls.mode = mode();
    controls.thresholdFactor = thresholdFactor_.get();
    controls.belowFloor = belowFloor_.get();
    controls.range = controls.mode == ThresholdMode::Below ? smoothedRangeBelow_ : smoothedRange_;
    controls.holdFrames = holdFrames_.get();
    controls.attack1 = attack1_.get();
    controls.attack2 = attack2_.get();
    controls.release1 = release1_.get();
    controls.release2 = release2_.get();
    controls.cutoffAmount = smoothedCutoffAmount_;
    controls.gainExponent = smoothedGainExponent_;
    controls.rateAmount = rateAmount_.get();
    controls.normalisedRate = normalisedRate;

    state_.depthSlope.advance(depthSlope_.get(), perFrame, frames);
    state_.depthRest.advance(depthRest_.get(), perFrame, frames);
    stages_.envelope(state_, controls, gained, frames, output);
}

} // namespace pedl
