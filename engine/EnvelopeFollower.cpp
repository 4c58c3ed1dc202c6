#include "engine/EnvelopeFollower.h"

#include "engine/Stages.h"
#include "parameters/ValueLaws.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace pedl {

namespace {

constexpr double kMsASecond = 1000.0;

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

/// What both smoothers run slower by at a shape of 0 (one pole) to 1 (two equal poles).
[[nodiscard]] ShapeKnot stretchesAt(double shape) noexcept {
    std::size_t high = 1;
    while (high + 1 < kShapeKnots.size() && kShapeKnots[high].shape < shape)
        ++high;
    const ShapeKnot& below = kShapeKnots[high - 1];
    const ShapeKnot& above = kShapeKnots[high];
    const double way = (shape - below.shape) / (above.shape - below.shape);
    return {shape, below.stretch1 + (above.stretch1 - below.stretch1) * way,
            below.stretch2 + (above.stretch2 - below.stretch2) * way};
}

/// Coefficient of one smoother: `stretch` times the corner of a pole that rises in `timeMs`.
[[nodiscard]] double timeCoefficient(double stretch, double timeMs, double sampleRateHz) noexcept {
    return 1.0 - std::exp(-std::numbers::pi * stretch * kMsASecond / (timeMs * sampleRateHz));
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
    deriveTimes();
}

void EnvelopeFollower::setAttackTime(double attackMs) noexcept {
    attackMs_.set(attackMs);
    changes_.mark(Group::Times);
}

void EnvelopeFollower::setReleaseTime(double releaseMs) noexcept {
    releaseMs_.set(releaseMs);
    changes_.mark(Group::Times);
}

void EnvelopeFollower::setAttackShape(double shape) noexcept {
    shape_.set(std::min(shape, 1.0));
    changes_.mark(Group::Times);
}

void EnvelopeFollower::setHoldTime(double holdMs) noexcept {
    holdMs_.set(holdMs);
    changes_.mark(Group::Hold);
}

void EnvelopeFollower::setExtension(double normalised) noexcept {
    extension_.set(laws::holdExtension(normalised));
    changes_.mark(Group::Hold);
}

void EnvelopeFollower::setRange(double normalised) noexcept {
    rangeNormalised_.set(normalised);
    changes_.mark(Group::Range);
}

void EnvelopeFollower::setThreshold(double normalised) noexcept {
    threshold_.set(normalised);
    changes_.mark(Group::Threshold);
}

void EnvelopeFollower::setMode(double normalised) noexcept {
    mode_.set(laws::threeWayState(normalised));
}

void EnvelopeFollower::setDepthAmount(double normalised) noexcept {
    depthAmount_.set(normalised);
    changes_.mark(Group::Depth);
}

void EnvelopeFollower::setDepthSwitch(double normalised) noexcept {
    depthSwitch_.set(laws::twoWayState(normalised));
    changes_.mark(Group::Depth);
}

void EnvelopeFollower::setGainAmount(double normalised) noexcept {
    gainAmount_.set(normalised);
    changes_.mark(Group::Gain);
}

void EnvelopeFollower::setGainSwitch(double normalised) noexcept {
    gainSwitch_.set(laws::twoWayState(normalised));
    changes_.mark(Group::Gain);
}

void EnvelopeFollower::setRateAmount(double normalised) noexcept {
    rateNormalised_.set(normalised);
}

void EnvelopeFollower::setRateSwitch(double normalised) noexcept {
    rateSwitch_.set(laws::twoWayState(normalised));
}

void EnvelopeFollower::setCutoffAmount(double normalised) noexcept {
    cutoffAmount_.set((2.0 * normalised - 1.0) * 0.5);
}

void EnvelopeFollower::setCutoffSwitch(double normalised) noexcept {
    cutoffSwitch_.set(laws::twoWayState(normalised));
}

void EnvelopeFollower::deriveChanged() noexcept {
    const auto changed = changes_.take();
    if (changed.has(Group::Times))
        deriveTimes();
    if (changed.has(Group::Hold))
        deriveHold();
    if (changed.has(Group::Threshold))
        deriveThreshold();
    if (changed.has(Group::Range))
        deriveRange();
    if (changed.has(Group::Depth))
        deriveDepth();
    if (changed.has(Group::Gain))
        deriveGain();
}

void EnvelopeFollower::deriveTimes() noexcept {
    const double attackMs = attackMs_.get();
    const double releaseMs = releaseMs_.get();
    const ShapeKnot at = stretchesAt(shape_.get());
    attack1_ = timeCoefficient(at.stretch1, attackMs, sampleRateHz_);
    attack2_ = timeCoefficient(at.stretch2, attackMs, sampleRateHz_);
    release1_ = timeCoefficient(at.stretch1, releaseMs, sampleRateHz_);
    release2_ = timeCoefficient(at.stretch2, releaseMs, sampleRateHz_);
}

void EnvelopeFollower::deriveHold() noexcept {
    constexpr double kSecondsAMs = 0.001;
    const double frames = holdMs_.get() * extension_.get() * kSecondsAMs * sampleRateHz_;
    holdFrames_ = static_cast<std::int32_t>(frames);
}

void EnvelopeFollower::deriveThreshold() noexcept {
    // The gain's floor in mode "below" rises as the threshold falls.
    constexpr double kHighestFloor = 0.248;
    constexpr double kFloorSpan = 0.183;
    thresholdFactor_ = laws::thresholdFactor(threshold_.get());
    belowFloor_ = kHighestFloor - (laws::kHighestThresholdFactor - thresholdFactor_) * kFloorSpan /
                                      laws::kHighestThresholdFactor;
}

void EnvelopeFollower::deriveRange() noexcept {
    constexpr double kHighestRange = 3.0;
    const double normalised = rangeNormalised_.get();
    range_ = kHighestRange * normalised * normalised;
    rangeBelow_ = kHighestRange * std::sqrt(normalised);
}

void EnvelopeFollower::deriveDepth() noexcept {
    constexpr double kBend = 1.4;
    constexpr double kSteepest = 4.0;
    if (depthSwitch_.get() == 0.0) {
        depthSlope_ = 0.0;
        depthRest_ = 1.0;
        return;
    }
    const double amount = 2.0 * depthAmount_.get() - 1.0;
    const double bent = std::pow(std::abs(amount), kBend);
    depthSlope_ = amount < 0.0 ? -kSteepest * bent : kSteepest * bent;
    depthRest_ = amount < 0.0 ? 1.0 : std::max(0.0, 1.0 - bent);
}

void EnvelopeFollower::deriveGain() noexcept {
    constexpr double kLowestRatio =
        0.5; // with the knob at its end; 1 in the middle, 8 at the start
    constexpr double kRatioBase = 4.0;
    if (gainSwitch_.get() == 0.0) {
        gainExponent_ = 1.0;
        return;
    }
    const double rest = 1.0 - gainAmount_.get();
    gainExponent_ = 1.0 / (kLowestRatio * std::pow(kRatioBase, 2.0 * rest * rest));
}

void EnvelopeFollower::setSampleRate(double sampleRateHz) noexcept {
    deriveChanged(); // a hold that was set until now has its length at the old rate
    sampleRateHz_ = sampleRateHz;
    deriveTimes();
}

void EnvelopeFollower::reinitialise() noexcept {
    deriveChanged();
    smoothedRange_ = range_;
    smoothedRangeBelow_ = rangeBelow_;
    state_.depthSlope.snap(depthSlope_);
    state_.depthRest.snap(depthRest_);
    smoothedGainExponent_ = gainExponent_;
    smoothedCutoffAmount_ = cutoffAmount_.get();
    state_.first = state_.second = restPower(mode());
    state_.held = 0.0;
    state_.heldFrames = 0;
    makeup_ = 1.0;
}

void EnvelopeFollower::tick(const ControlTick& tick, double modulation) noexcept {
    deriveChanged();
    smoothedRangeBelow_ = ticked(smoothedRangeBelow_, rangeBelow_, tick.slow, tick);
    const double exponent = modulation * gainExponent_ + (1.0 - modulation);
    smoothedGainExponent_ = ticked(smoothedGainExponent_, exponent, tick.slow, tick);
    const double cutoffAmount = modulation * cutoffSwitch_.get() * cutoffAmount_.get();
    smoothedCutoffAmount_ = ticked(smoothedCutoffAmount_, cutoffAmount, tick.slow, tick);
    smoothedRange_ = ticked(smoothedRange_, range_, tick.slow, tick);
    makeup_ = makeupFor(smoothedGainExponent_);
}

double EnvelopeFollower::makeupFor(double exponent) const noexcept {
    constexpr double kTypicalPower = 0.25; // of programme material, in units of full scale
    const double typical = thresholdFactor_ * kTypicalPower;
    double base = 0.0;
    switch (mode()) {
    case ThresholdMode::Below:
        return 1.0;
    case ThresholdMode::Above:
        base = (std::max(1.0, typical) - 1.0) * range_ + 1.0;
        break;
    case ThresholdMode::Around:
        base = (typical - 0.5) * range_ + 1.0;
        break;
    }
    // The lowest typical power is 0.25 and the largest range 3: the base can come down to 0.25.
    base = std::max(base, std::numeric_limits<double>::min());
    const double inverseGain = 1.0 / (base / std::pow(base, exponent));
    // An expanding setting is taken back in full by the square root, a compressing one only by the
    // fourth root: compressed material may get louder, which is what one turns it up for.
    const double root = std::sqrt(inverseGain);
    return exponent < 1.0 ? root : std::sqrt(root);
}

void EnvelopeFollower::process(const StereoStretch& gained, double normalisedRate, double perFrame,
                               int frames, EnvelopeOutput& output) noexcept {
    deriveChanged();
    Controls controls;
    controls.mode = mode();
    controls.thresholdFactor = thresholdFactor_;
    controls.belowFloor = belowFloor_;
    controls.range = controls.mode == ThresholdMode::Below ? smoothedRangeBelow_ : smoothedRange_;
    controls.holdFrames = holdFrames_;
    controls.attack1 = attack1_;
    controls.attack2 = attack2_;
    controls.release1 = release1_;
    controls.release2 = release2_;
    controls.cutoffAmount = smoothedCutoffAmount_;
    controls.gainExponent = smoothedGainExponent_;
    controls.rateAmount = rateAmount();
    controls.normalisedRate = normalisedRate;

    state_.depthSlope.advance(depthSlope_, perFrame, frames);
    state_.depthRest.advance(depthRest_, perFrame, frames);
    stages_.envelope(state_, controls, gained, frames, output);
}

} // namespace pedl
