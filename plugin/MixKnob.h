#pragma once

#include "foundation/basics/Relaxed.h"

namespace pedl {

/// Levels of the dry and the wet signal in knob positions: 0.5 is unity, 1 is 12 dB.
struct DryWetPair {
    double dry = 0.5;
    double wet = 0.5;

    friend bool operator==(const DryWetPair&, const DryWetPair&) = default;
};

/// One step of the mix: the level that is louder leads in equal steps and the other one answers, so
/// that the product of both stays, until one of them reaches its end.
///
/// @param pair    the knob's remembered positions
/// @param levels  those in force; they tell which one leads
/// @param step    positive towards wet
[[nodiscard]] DryWetPair steppedMix(DryWetPair pair, DryWetPair levels, double step) noexcept;

/// One step of both levels together, their ratio kept.
///
/// @param step  positive towards louder
[[nodiscard]] DryWetPair steppedLevels(DryWetPair pair, double step) noexcept;

/// The state of the relative knob that moves the dry and the wet level against each other or, with
/// the modifier key held, together.
///
/// It remembers its own pair of positions, since those may run past the ends of the two levels and
/// come back. Thread: any, real time.
class MixKnob {
public:
    /// Whether the modifier key is held: steps move both levels together.
    void setMovesBoth(bool movesBoth) noexcept;

    [[nodiscard]] DryWetPair pair() const noexcept;
    void setPair(DryWetPair pair) noexcept;

    /// Takes the levels that someone else has set; left alone while the knob itself sets them.
    void follow(DryWetPair levels) noexcept;

    /// Moves the remembered pair by one step and returns it; `levels` are those in force.
    DryWetPair turn(double step, DryWetPair levels) noexcept;

    void beginMove() noexcept { isMoving_.set(true); }
    void endMove() noexcept { isMoving_.set(false); }

private:
    // Written by the user interface, the pair by any thread.
    Relaxed<double> dry_{0.5};
    Relaxed<double> wet_{0.5};
    Relaxed<bool> movesBoth_{false};
    Relaxed<bool> isMoving_{false};
};

} // namespace pedl
