#include "plugin/TempoSync.h"

#include "parameters/ValueLaws.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

/// Seconds of a whole note at one beat (a quarter note) per minute.
constexpr double kWholeNoteSecondsBpm = 240.0;
constexpr double kQuartersPerWholeNote = 4.0;

/// Cycles a second when `division` is the length of one.
double rateHz(NoteDivision division, double tempoBpm) {
    return division.denominator * tempoBpm / (division.numerator * kWholeNoteSecondsBpm);
}

/// How far the cycle that runs at `positionQuarters` has got. A count-in gives negative phases.
double phaseAt(double positionQuarters, NoteDivision division, double cyclesPerQuarter) {
    // Wrapped at the numerator's whole notes first: after hours of a song the product with the rate
    // would have lost the digits that matter.
    const double wrapped = std::fmod(positionQuarters, division.numerator * kQuartersPerWholeNote);
    const double cycles = wrapped * cyclesPerQuarter;
    return cycles - std::trunc(cycles);
}

} // namespace

void TempoSync::setMode(float normalised) noexcept {
    mode_.set(static_cast<SyncMode>(laws::threeWayState(normalised)));
}

void TempoSync::setManualTempo(float normalised) noexcept {
    manualTempoBpm_.set(laws::tempoBpm(normalised));
}

void TempoSync::setDivision(float normalised) noexcept {
    divisionIndex_.set(noteDivisionIndex(normalised));
}

SyncMode TempoSync::mode() const noexcept {
    return mode_.get();
}

TempoSync::Result TempoSync::update(const HostTime& time) noexcept {
    const SyncMode mode = this->mode();
    const bool followsHost = mode == SyncMode::HostTempo && time.tempoBpm.has_value();
    const double tempoBpm =
        followsHost ? std::clamp(*time.tempoBpm, laws::kSlowestTempoBpm, laws::kFastestTempoBpm)
                    : manualTempoBpm_.get();
    tempoBpm_.set(tempoBpm);
    followsHostTempo_.set(followsHost);
    if (mode == SyncMode::Free)
        return {};

    const NoteDivision division = kNoteDivisions[divisionIndex_.get()];
    const double wantedHz = rateHz(division, tempoBpm);
    const double wanted = laws::normalisedLfoRate(wantedHz);
    const double normalised = std::clamp(wanted, 0.0, 1.0);
    isRateOutOfRange_.set(wanted != normalised);

    Result result;
    result.hasRate = true;
    result.normalisedRate = static_cast<float>(normalised);
    if (mode == SyncMode::HostTempo && time.positionQuarters) {
        // The phase keeps to the wanted rate even where the LFO itself cannot follow it.
        result.phaseCycles = phaseAt(*time.positionQuarters, division, wantedHz * 60.0 / tempoBpm);
        result.isPhaseLocked = followsHost;
    }
    return result;
}

void TempoSync::reset() noexcept {
    tempoBpm_.set(kResetTempoBpm);
    isRateOutOfRange_.set(false);
    followsHostTempo_.set(false);
}

double TempoSync::tempoBpm() const noexcept {
    return tempoBpm_.get();
}

bool TempoSync::isRateOutOfRange() const noexcept {
    return isRateOutOfRange_.get();
}

bool TempoSync::followsHostTempo() const noexcept {
    return followsHostTempo_.get();
}

} // namespace pedl
