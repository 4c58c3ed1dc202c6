#pragma once

#include "parameters/ParameterIndex.h"

#include <algorithm>
#include <array>
#include <cmath>

/// The effect's sound once more, written as plainly as it can be: one frame's whole chain after
/// another, the C library's functions, no table shared and nothing precomputed that a formula
/// does not ask for. It is slow and obvious on purpose: the engine is measured against it.
namespace pedl::reference {

/// Left and right.
using Stereo = std::array<double, 2>;

constexpr double kPi = 3.14159265358979323846;

/// Share of the way that is still to go after a smoother's stated time: 20 log10 of it is -19.24
/// dB.
constexpr double kRestAfterSettling = 0.1091012;

/// Every recursive state takes this detour; what is too small to survive it becomes zero.
inline double flushed(double value) {
    return (value + 1e-36) - 1e-36;
}

/// What every parameter is set to. The parts read what they need when a block begins; nothing that
/// follows from a value is kept, but for what keeps the sample rate it was set at.
struct Settings {
    std::array<float, kNumParams> normalised{};

    float& operator[](int index) { return normalised.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] double of(int index) const {
        return static_cast<double>(normalised.at(static_cast<std::size_t>(index)));
    }
    /// A two-state switch: 0 below the middle, 1 from it on.
    [[nodiscard]] int isOn(int index) const { return static_cast<int>(of(index) + 0.5); }
    /// A three-state selector: 0, 1 or 2.
    [[nodiscard]] int state(int index) const { return static_cast<int>(2.0 * of(index) + 0.5); }
};

/// A power whose base may have been rounded to a hair below zero.
inline double powerFromZero(double base, double exponent) {
    return std::pow(std::max(base, 0.0), exponent);
}

/// Coefficient of a one-pole that comes 89.1 % of the way in `updates` updates.
inline double settlingIn(double updates) {
    return 1.0 - std::pow(kRestAfterSettling, 1.0 / updates);
}

/// A value on its way to its target.
struct Glide {
    double target = 0.0;
    double value = 0.0;

    void snap() { value = target; }
    void step(double coefficient, double offset) {
        value += (target - value) * coefficient + offset;
    }
    void stepFlushed(double coefficient) {
        value = flushed(value + (target - value) * coefficient);
    }
};

} // namespace pedl::reference
