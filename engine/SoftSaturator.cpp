#include "engine/SoftSaturator.h"

#include "engine/Stages.h"

#include <cmath>

namespace pedl {

SoftSaturator::SoftSaturator(InstructionSet instructions) : stages_(stagesFor(instructions)) {
    setSampleRate(44100.0);
}

void SoftSaturator::setDrive(double normalised) noexcept {
    constexpr double kCurve = 1.3219280949; // ln 0.4 / ln 0.5: 0 dB with the knob in the middle
    const double driveDb = std::pow(normalised, kCurve) * 30.0 - 12.0;
    driveTarget_.set(std::pow(10.0, driveDb / 20.0));
}

void SoftSaturator::setSampleRate(double sampleRateHz) noexcept {
    constexpr double kDriveCornerHz = 5.0;
    reset();
    state_.drive.snap(driveTarget_.get());
    smoothing_ = onePoleCoefficient(kDriveCornerHz, sampleRateHz);
}

void SoftSaturator::process(StereoStretch& io, bool isHeard, int frames) noexcept {
    stages_.saturator(state_, {driveTarget_.get(), smoothing_, isHeard}, io, frames);
    peak_.raiseTo(state_.peak);
}

double SoftSaturator::readMeter() noexcept {
    const double peak = peak_.exchange(0.0);
    return isOff_.get() ? 0.0 : peak;
}

} // namespace pedl
