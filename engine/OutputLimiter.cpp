#include "engine/OutputLimiter.h"

#include "engine/Stages.h"

#include <algorithm>

namespace pedl {

namespace {

constexpr double kDriveCornerHz = 5.0;
constexpr double kSecondsAMs = 0.001;

} // namespace

OutputLimiter::OutputLimiter(InstructionSet instructions) : stages_(stagesFor(instructions)) {
    state_.drive.snap(driveTarget_.get());
    smoothing_ = onePoleCoefficient(kDriveCornerHz, sampleRateHz_);
    setDefaults();
}

void OutputLimiter::setAttack(double attackMs) noexcept {
    constexpr double kShortestMs = 0.1;
    constexpr double kLongestMs = 100.0;
    attackMs_ = std::clamp(attackMs, kShortestMs, kLongestMs);
    attack_ = settleCoefficient(sampleRateHz_ * attackMs_ * kSecondsAMs);
}

void OutputLimiter::setRelease(double releaseMs) noexcept {
    constexpr double kShortestMs = 30.0;
    constexpr double kLongestMs = 3000.0;
    releaseMs_ = std::clamp(releaseMs, kShortestMs, kLongestMs);
    release_ = settleCoefficient(sampleRateHz_ * releaseMs_ * kSecondsAMs);
}

void OutputLimiter::setDefaults() noexcept {
    constexpr double kAttackMs = 5.0;
    constexpr double kReleaseMs = 50.0;
    setAttack(kAttackMs);
    setRelease(kReleaseMs);
}

void OutputLimiter::setSampleRate(double sampleRateHz) noexcept {
    // With the old rate: the ramp of the ceiling has always been one change of rate behind, and
    // mixes were made with it.
    smoothing_ = onePoleCoefficient(kDriveCornerHz, sampleRateHz_);
    sampleRateHz_ = std::clamp(sampleRateHz, kLowestRateHz, kHighestRateHz);
    reset();
    setAttack(attackMs_);
    setRelease(releaseMs_);
}

void OutputLimiter::reset() noexcept {
    state_.gain = 1.0;
    state_.drive.snap(driveTarget_.get());
    state_.envelope = 0.0;
}

void OutputLimiter::process(StereoStretch& io, int frames) noexcept {
    stages_.limiter(state_, {driveTarget_.get(), smoothing_, attack_, release_}, io, frames);
}

} // namespace pedl
