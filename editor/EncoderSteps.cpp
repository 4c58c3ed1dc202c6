#include "editor/EncoderSteps.h"

#include "foundation/basics/Relaxed.h"
#include "parameters/NoteDivision.h"
#include "parameters/ValueLaws.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

/// What an increment of 1 is worth.
struct StepSizes {
    double wheel;
    double wheelFine;
    double drag;
    double dragFine;

    [[nodiscard]] double of(CEcncoderKnob03& encoder) const {
        if (encoder.isFromWheel())
            return encoder.isFineUsed() ? wheelFine : wheel;
        return encoder.isFineUsed() ? dragFine : drag;
    }
};

constexpr StepSizes kRateHz{0.035, 0.01, 0.03, 0.005};
constexpr StepSizes kTempoBpm{0.2, 0.02, 0.5, 0.05};
constexpr StepSizes kCutoffHz{2.0, 2.0, 4.0, 1.0}; // were the scale a straight line
constexpr double kCutoffSpanHz = laws::kHighestCutoffHz - laws::kLowestCutoffHz;
constexpr double kTempoSpanBpm = laws::kFastestTempoBpm - laws::kSlowestTempoBpm;

/// A drag goes to the next division when it has come as far as this.
constexpr float kIncrementsADivision = 3.0F;

/// How far drags have come since the last step; one for all editors, as the hand is one.
constinit Relaxed<float> draggedSinceStep{0.0F};

} // namespace

/// In one edit of the host's, and within the range: an encoder turns on beyond its ends.
void EncoderSteps::automate(std::int32_t parameter, float value) const {
    panel_.effect->automate(parameter, std::clamp(value, 0.0F, 1.0F));
}

EncoderSteps::Moved EncoderSteps::turnLfo(CEcncoderKnob03& encoder) {
    enum Mode { kFree, kOwnTempo };
    const int mode = static_cast<int>(2.0F * panel_.value(kLFOSyncMode)); // cut, not rounded
    if (mode == kFree) {
        stepRate(encoder);
        return Moved::Rate;
    }
    if (!encoder.isAltHeld()) {
        stepDivision(encoder.getValue(), encoder.isFromWheel());
        return Moved::Division;
    }
    if (mode != kOwnTempo)
        return Moved::Nothing; // the host's tempo is the host's
    stepTempo(encoder);
    return Moved::Tempo;
}

void EncoderSteps::stepRate(CEcncoderKnob03& encoder) {
    const double step = static_cast<double>(encoder.getValue()) * kRateHz.of(encoder);
    automate(kLFOFreq, static_cast<float>(static_cast<double>(panel_.value(kLFOFreq)) +
                                          step / laws::kLfoRateSpanHz));
}

void EncoderSteps::stepDivision(float increment, bool isFromWheel) {
    draggedSinceStep.set(draggedSinceStep.get() + std::abs(increment));
    if (!isFromWheel && draggedSinceStep.get() < kIncrementsADivision)
        return;
    draggedSinceStep.set(0.0F);
    VSTGUI::CControl* const notes = panel_.controls.find(kLFOSynchroRate);
    if (!notes)
        return;
    constexpr int kLast = static_cast<int>(kNoteDivisions.size()) - 1;
    const auto next = static_cast<int>(static_cast<float>(kLast) * notes->getValue() +
                                       (increment >= 0.0F ? 1.0F : -1.0F));
    automate(kLFOSynchroRate,
             static_cast<float>(std::clamp(next, 0, kLast)) / static_cast<float>(kLast));
    if (VSTGUI::CControl* const shown = panel_.controls.find(kLFOSynchroRate))
        shown->setDirty();
}

/// In tenths of a beat per minute.
void EncoderSteps::stepTempo(CEcncoderKnob03& encoder) {
    const double increment = static_cast<double>(encoder.getRawDelta());
    const double step = increment * kTempoBpm.of(encoder) / kTempoSpanBpm;
    const double bpm = laws::tempoBpm(step + static_cast<double>(panel_.value(kTempoSetup)));
    const double tenths = std::trunc(bpm * 10.0 + (increment >= 0.0 ? 0.5 : -0.5));
    automate(kTempoSetup, static_cast<float>(laws::normalisedTempo(tenths / 10.0)));
}

void EncoderSteps::turnCutoff(CEcncoderKnob03& encoder) {
    const double step = static_cast<double>(encoder.getValue()) * kCutoffHz.of(encoder);
    automate(kFilterCutoffFreq,
             static_cast<float>(static_cast<double>(panel_.value(kFilterCutoffFreq)) +
                                step / kCutoffSpanHz));
}

} // namespace pedl
