#include "plugin/MixKnob.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

/// The knob never lets a level fall to silence: from zero no ratio could bring it back.
constexpr double kLowestPosition = 0.0005;

/// Up to here (-24 dB) the rising level moves in equal steps, above in equal ratios.
constexpr double kLinearPosition = 0.125;

double kept(double position, double previous) {
    return std::isnan(position) ? previous : position;
}

double floored(double position) {
    return std::max(position, kLowestPosition);
}

/// The level that rises as the other falls from `falling` to `fallen`.
double raised(double rising, double step, double falling, double fallen) {
    return rising <= kLinearPosition ? rising + step : rising * falling / fallen;
}

/// Wet below dry: dry leads, wet answers.
DryWetPair steppedFromDry(DryWetPair pair, double step) {
    if (pair.dry == 0.0)
        return {pair.dry + step, std::max(pair.wet - step, 0.0)};
    DryWetPair moved{std::max(pair.dry - step, 0.0), pair.wet};
    if (moved.dry > 0.0)
        moved.wet = raised(pair.wet, step, pair.dry, moved.dry);
    return moved;
}

/// Wet at or above dry: wet leads, dry answers.
DryWetPair steppedFromWet(DryWetPair pair, double step) {
    if (pair.wet == 0.0)
        return {std::max(pair.dry - step, 0.0), pair.wet + step};
    DryWetPair moved{pair.dry, std::max(pair.wet + step, 0.0)};
    if (moved.wet > 0.0)
        moved.dry = raised(pair.dry, -step, pair.wet, moved.wet);
    return moved;
}

} // namespace

DryWetPair steppedMix(DryWetPair pair, DryWetPair levels, double step) noexcept {
    const DryWetPair moved =
        levels.wet < levels.dry ? steppedFromDry(pair, step) : steppedFromWet(pair, step);
    return {floored(kept(moved.dry, pair.dry)), floored(kept(moved.wet, pair.wet))};
}

DryWetPair steppedLevels(DryWetPair pair, double step) noexcept {
    double wet = floored(pair.wet + step);
    if (wet > 1.0 && pair.dry > 1.0 && step >= 0.0)
        wet = pair.wet; // both have passed their ends: further steps would only have to come back
    double dry = pair.dry;
    if (pair.wet > 0.0)
        dry = pair.dry * wet / pair.wet;
    if (dry == 0.0)
        dry = step;
    wet = kept(wet, pair.wet);
    // A dry level without a ratio leaves its old position to the wet one. Users of the modifier key
    // know the jump, so it stays.
    if (std::isnan(dry))
        return {pair.dry, pair.dry};
    return {dry, wet};
}

void MixKnob::setMovesBoth(bool movesBoth) noexcept {
    movesBoth_.set(movesBoth);
}

DryWetPair MixKnob::pair() const noexcept {
    return {dry_.get(), wet_.get()};
}

void MixKnob::setPair(DryWetPair pair) noexcept {
    dry_.set(pair.dry);
    wet_.set(pair.wet);
}

void MixKnob::follow(DryWetPair levels) noexcept {
    if (!isMoving_.get())
        setPair(levels);
}

DryWetPair MixKnob::turn(double step, DryWetPair levels) noexcept {
    const DryWetPair moved =
        movesBoth_.get() ? steppedLevels(pair(), step) : steppedMix(pair(), levels, step);
    setPair(moved);
    return moved;
}

} // namespace pedl
