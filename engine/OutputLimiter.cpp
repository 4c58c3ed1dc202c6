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
    setDefaults();
}

void OutputLimiter::setAttack(double attackMs) noexcept {
    attackMs_ = std::clamp(attackMs, 0.1, 100.0);
    attack_ = settleCoefficient(sampleRateHz_ * attackMs_ * 0.001);
}

void OutputLimiter::setRelease(double releaseMs) noexcept {
    releaseMs_ = std::clamp(releaseMs, 30.0, 3000.0);
    release_ = settleCoefficient(sampleRateHz_ * releaseMs_ * 0.001);
}

void OutputLimiter::setDefaults() noexcept {
    setAttack(5.0);
    setRelease(50.0);
}

void OutputLimiter::setSampleRate(double sampleRateHz) noexcept {
    // With the old rate: the ramp of the ceiling has always been one change of rate behind, and
    // mixes were made with it.
    smoothing_ = onePoleCoefficient(kDriveCornerHz, sampleRateHz_);
    sampleRateHz_ = std::clamp(sampleRateHz, 44100.0, 192000.0);
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
