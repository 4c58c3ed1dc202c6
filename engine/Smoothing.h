#pragma once

#include "engine/Stretch.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace pedl {

/// What is left of a step after `n` updates with the coefficient 1 - kSettleRest^(1 / n): a value
/// counts as arrived after 89.1 % of the way.
constexpr double kSettleRest = 0.1091012;

/// Coefficient of a one-pole smoother that arrives after `updates` updates.
[[nodiscard]] inline double settleCoefficient(double updates) noexcept {
    return 1.0 - std::pow(kSettleRest, 1.0 / updates);
}

/// Coefficient of a one-pole low-pass, one update a frame: 1 - e^(-2 pi fc / fs).
[[nodiscard]] inline double onePoleCoefficient(double cornerHz, double sampleRateHz) noexcept {
    constexpr double kTwoPi = 2.0 * std::numbers::pi;
    return 1.0 - std::exp(-kTwoPi * cornerHz / sampleRateHz);
}

/// One update of a one-pole smoother, one a frame.
[[nodiscard]] inline double smoothed(double value, double target, double coefficient) noexcept {
    return value + (target - value) * coefficient + kDenormalGuard - kDenormalGuard;
}

/// How the values that move once a control tick move at this tick.
struct ControlTick {
    double slow = 0.0;  ///< coefficient of values that take 0.23 s
    double fast = 0.0;  ///< coefficient of switches and levels: 40 ms
    double nudge = 0.0; ///< +-1e-36, its sign changing from tick to tick: no denormals, no drift
};

/// One update of a smoother that moves once a control tick.
[[nodiscard]] inline double ticked(double value, double target, double coefficient,
                                   const ControlTick& tick) noexcept {
    return value + (target - value) * coefficient + tick.nudge;
}

/// A one-pole smoother over stretches. Most of the time it rests at its target; then its stretch is
/// one constant, which is written once.
///
/// Thread: audio, real time; `snap` also while no audio runs.
class StretchSmoother {
public:
    explicit StretchSmoother(double start = 0.0) noexcept : value_(start) {}

    /// Jumps to `value`; nothing is left to smooth.
    void snap(double value) noexcept { value_ = value; }

    [[nodiscard]] double value() const noexcept { return value_; }

    /// Whether the last stretch holds one value throughout.
    [[nodiscard]] bool isConstant() const noexcept { return isConstant_; }

    /// The values of the last stretch, one a frame.
    [[nodiscard]] const MonoStretch& stretch() const noexcept { return stretch_; }

    /// Moves on by `frames` frames towards `target`.
    void advance(double target, double coefficient, int frames) noexcept {
        isConstant_ = smoothed(value_, target, coefficient) == value_; // and so will it ever be
        if (isConstant_) {
            if (filledWith_ != value_) {
                for (double& place : stretch_.at)
                    place = value_;
                filledWith_ = value_;
            }
            return;
        }
        double value = value_;
        for (int i = 0; i < frames; ++i) {
            value = smoothed(value, target, coefficient);
            stretch_.at[i] = value;
        }
        value_ = value;
        filledWith_ = kMixed;
    }

private:
    static constexpr double kMixed = std::numeric_limits<double>::quiet_NaN(); // equals no value

    double value_;
    double filledWith_ = kMixed; ///< what every place of the stretch holds
    bool isConstant_ = true;
    MonoStretch stretch_;
};

} // namespace pedl
