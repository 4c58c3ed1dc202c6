#include "engine/OutputLimiter.h"

#include "engine/Stages.h"

#include <algorithm>

namespace pedl {

namespace {

constexpr double kDriveCornerHz = 5.0;

} // namespace

OutputLimiter::OutputLimiter(InstructionSet instructions) : stages_(stagesFor(instructions)) {
    state_.drive.snap(driveTarget_.get());
    smoothing_ = onePoleCoefficient(kDriveCornerHz, sampleRateHz_);
    updateTimes();
}

void OutputLimiter::updateTimes() noexcept {
    constexpr double kAttackMs = 5.0;
    constexpr double kReleaseMs = 50.0;
    constexpr double kSecondsAMs = 0.001;
    attack_ = settleCoefficient(sampleRateHz_ * kAttackMs * kSecondsAMs);
    release_ = settleCoefficient(sampleRateHz_ * kReleaseMs * kSecondsAMs);
}

void OutputLimiter::setSampleRate(double sampleRateHz) noexcept {
    // With the old rate: the ramp of the ceiling has always been one change of rate behind, and
    // mixes were made with it.
    smoothing_ = onePoleCoefficient(kDriveCornerHz, sampleRateHz_);
    sampleRateHz_ = std::clamp(sampleRateHz, kLowestRateHz, kHighestRateHz);
    reset();
    updateTimes();
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
