#pragma once

#include <cmath>

/// What a host value in 0..1 stands for. Texts, engine and tempo share these: a display that says
/// 440 Hz and a filter that plays 440 Hz have one formula. Where a law is needed in both
/// directions, both stand here.
///
/// `Number` is the precision, or the vector, in which the caller computes. It is part of what a
/// saved song sounds like: a law is never evaluated in another one.
///
/// Thread: any, real time.
namespace pedl::laws {

// Switches

/// 0 below one half, 1 from there.
[[nodiscard]] constexpr int twoWayState(double normalised) noexcept {
    return static_cast<int>(normalised + 0.5);
}

/// 0, 1 or 2: changes at one quarter and three quarters.
[[nodiscard]] constexpr int threeWayState(double normalised) noexcept {
    return static_cast<int>(2.0 * normalised + 0.5);
}

/// The LFO's wave, 0..6. Cut, not rounded: the last one is reached at 1 alone.
[[nodiscard]] constexpr int waveState(double normalised) noexcept {
    constexpr double kLastWave = 6.0;
    return static_cast<int>(kLastWave * normalised);
}

// Levels

constexpr double kDbADecade = 20.0; ///< decibels of a factor of ten in level

/// Decibels as a linear factor.
[[nodiscard]] inline double factorFromDb(double db) noexcept {
    return std::pow(10.0, db / kDbADecade);
}

constexpr double kLowestInputGainDb = -24.0;
constexpr double kInputGainSpanDb = 48.0;

template <typename Number> [[nodiscard]] constexpr Number inputGainDb(Number normalised) noexcept {
    return Number(kInputGainSpanDb) * normalised + Number(kLowestInputGainDb);
}

/// Dry and wet level as a linear factor: silence, unity in the middle, +12 dB at the end.
[[nodiscard]] constexpr double dryWetLevel(double normalised) noexcept {
    constexpr double kHighest = 4.0;
    return kHighest * normalised * normalised;
}

// LFO and tempo

constexpr double kLowestLfoRateHz = 0.01;
constexpr double kLfoRateSpanHz = 14.99; ///< up to 15 Hz

template <typename Number> [[nodiscard]] constexpr Number lfoRateHz(Number normalised) noexcept {
    return normalised * Number(kLfoRateSpanHz) + Number(kLowestLfoRateHz);
}

/// Outside 0..1 for rates that the LFO cannot do.
[[nodiscard]] constexpr double normalisedLfoRate(double rateHz) noexcept {
    return (rateHz - kLowestLfoRateHz) / kLfoRateSpanHz;
}

constexpr double kSlowestTempoBpm = 15.0;
constexpr double kFastestTempoBpm = 600.0;

[[nodiscard]] constexpr double tempoBpm(double normalised) noexcept {
    return kSlowestTempoBpm + (kFastestTempoBpm - kSlowestTempoBpm) * normalised;
}

[[nodiscard]] constexpr double normalisedTempo(double tempoBpm) noexcept {
    return (tempoBpm - kSlowestTempoBpm) / (kFastestTempoBpm - kSlowestTempoBpm);
}

// Filter

constexpr double kLowestCutoffHz = 20.0;
constexpr double kHighestCutoffHz = 20000.0;

/// How many times the lowest cut-off a value is: equal steps of pitch.
[[nodiscard]] inline double cutoffRatio(double normalised) noexcept {
    constexpr double kHighest = kHighestCutoffHz / kLowestCutoffHz;
    return std::pow(kHighest, normalised);
}

// Envelope follower

/// Threshold as a factor on the power that is measured, which brings it to 1: 48 dB in level.
constexpr double kHighestThresholdFactor = 63096.0;

[[nodiscard]] inline double thresholdFactor(double normalised) noexcept {
    return std::pow(kHighestThresholdFactor, 1.0 - normalised);
}

/// The attack's knob bent so that short times have more room; the attack's shape follows it, too.
template <typename Number> [[nodiscard]] Number attackBend(Number normalised) noexcept {
    constexpr auto kBend = static_cast<Number>(0.722);
    return std::pow(normalised, kBend);
}

/// Attack of a bent knob, 1..2000 ms.
template <typename Number> [[nodiscard]] Number attackMs(Number bent) noexcept {
    constexpr auto kLongestMs = static_cast<Number>(2000.0);
    return std::pow(kLongestMs, bent);
}

/// 3..3000 ms.
[[nodiscard]] inline double releaseMs(double normalised) noexcept {
    constexpr double kShortestMs = 3.0;
    constexpr double kSpan = 1000.0; // the longest over the shortest
    constexpr double kBend = 0.585;
    return kShortestMs * std::pow(kSpan, std::pow(normalised, kBend));
}

/// Factor on the time for which a peak is held: up to 1 in the lower half, up to 4 in the upper.
[[nodiscard]] constexpr double holdExtension(double normalised) noexcept {
    constexpr double kUpperSlope = 6.0;
    return normalised <= 0.5 ? 2.0 * normalised : kUpperSlope * normalised - 2.0;
}

} // namespace pedl::laws
