#pragma once

#include "engine/Stretch.h"

#include <cmath>

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
    constexpr double kTwoPi = 6.283185307179586;
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
/// one constant, found without a loop.
struct StretchSmoother {
    double value = 0.0;
    bool isConstant = true; ///< whether the last stretch holds one value throughout

    /// Fills the first `frames` places of `stretch` with the next values on the way to `target`.
    void fill(MonoStretch& stretch, double target, double coefficient, int frames) noexcept {
        const double next = smoothed(value, target, coefficient);
        isConstant = next == value; // and so will every later one be
        for (int i = 0; i < frames; ++i) {
            if (!isConstant)
                value = smoothed(value, target, coefficient);
            stretch.at[i] = value;
        }
    }
};

} // namespace pedl
