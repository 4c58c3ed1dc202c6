// The control tags beyond the parameters: what the view's own controls move and read, and which
// parameter MIDI learn means by them.

#include "plugin/ZMTpedlFilterEffect.h"

namespace pedl {

float ZMTpedlFilterEffect::tagValue(std::int32_t index) {
    switch (index) {
    case kDisplayParameterMode:
        return shownQuantity_.get();
    case kDryWetMix:
        return (mixPosition_.get() + 1.0F) * 0.5F;
    case kInverseInputLink:
        return programValue(kGain); // the linked levels have no value of their own
    case kLFOFreqOverflow:
        return tempoSync_.isRateOutOfRange() ? 1.0F : 0.0F;
    case kSynchroTempoFromHost:
        return static_cast<float>(tempoSync_.tempoBpm()); // beats per minute, not normalised
    case kParam4:
        return spare4_.get();
    case kParam5:
        return spare5_.get();
    default:
        return CPresetSystemEffect::getParameter(index);
    }
}

void ZMTpedlFilterEffect::applyTag(std::int32_t index, float value) {
    switch (index) {
    case kFilterFreqSlider:
        automate(kFilterCutoffFreq, value);
        break;
    case kLFOEncoder:
        updateTempoSync();
        break;
    case kDisplayParameterMode:
        shownQuantity_.set(value < 0.5F ? 0.0F : 1.0F);
        tellParameter(kLFOSyncMode, programValue(kLFOSyncMode)); // its display makes way or shows
        break;
    case kDryWetMix:
        turnMixKnob(value);
        break;
    case kInverseInputLink:
        turnInverseLink(value);
        break;
    case kDryWetAltVol:
        mixKnob_.setMovesBoth(value != 0.0F);
        break;
    case kParam4:
        spare4_.set(value);
        break;
    case kParam5:
        spare5_.set(value);
        break;
    default:
        break; // lamps, meters and what is derived take no values
    }
}

std::int32_t ZMTpedlFilterEffect::learnTarget(std::int32_t tag) {
    switch (tag) {
    case kFilterFreqSlider:
    case kCutoffEncoder:
        return kFilterCutoffFreq;
    case kLFOEncoder:
        return tempoSync_.mode() == SyncMode::Free ? kLFOFreq : kTempoSetup;
    default:
        return tag;
    }
}

bool ZMTpedlFilterEffect::isNotLearnable(std::int32_t index) const {
    return !isParameter(index) && index != kDisplayParameterMode && index != kParam4 &&
           index != kParam5;
}

} // namespace pedl
