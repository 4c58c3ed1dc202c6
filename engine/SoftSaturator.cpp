#include "engine/SoftSaturator.h"

#include "engine/Stages.h"
#include "parameters/ValueLaws.h"

#include <cmath>

namespace pedl {

SoftSaturator::SoftSaturator(InstructionSet instructions) : stages_(stagesFor(instructions)) {
    setSampleRate(kStartRateHz);
}

void SoftSaturator::setDrive(double normalised) noexcept {
    constexpr double kCurve = 1.3219280949; // ln 0.4 / ln 0.5: 0 dB with the knob in the middle
    constexpr double kSpanDb = 30.0;
    constexpr double kLowestDb = -12.0;
    driveTarget_.set(laws::factorFromDb(std::pow(normalised, kCurve) * kSpanDb + kLowestDb));
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
