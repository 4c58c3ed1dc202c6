#include "editor/PanelGestures.h"

#include "controls/ZMTMonoAndBistableButton.h"

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kCutoffShown = 0.0F;
constexpr float kRateShown = 1.0F;
constexpr float kRateAsked = 0.1F; // by the click above its lamp

/// Parameters that no control of the panel stands for.
bool isWithoutControl(std::int32_t parameter) {
    switch (parameter) {
    case kFilterFreqMin:
    case kFilterFreqMax:
    case kParam2:
    case kFreqFollow:
    case kDryGlobal:
    case kWetGlobal:
    case kParam3:
        return true;
    default:
        return false;
    }
}

} // namespace

void PanelGestures::valueChanged(CControl& control) {
    const CBaseObjectGuard held(&control);
    countForLearning(true);
    const std::int32_t tag = control.getTag();
    switch (tag) {
    case kGain:
        tellAlt(control);
        return automate(control);
    case kFreez:
        return changeFreeze(control);
    case kLFOSyncMode:
        return changeSyncMode(control);
    case kLFOFreq:
        display_.touch();
        automate(control);
        return showRate();
    case kLFOSynchroRate:
        display_.touch();
        return automate(control);
    case kTempoSetup:
        display_.touch();
        automate(control);
        return display_.touchTempo();
    case kFilterCutoffFreq:
        return changeCutoff(control);
    case kFilterFreqSlider:
        return moveSlider(control);
    case kLFOEncoder:
        return turnLfoEncoder(control);
    case kCutoffEncoder:
        return turnCutoffEncoder(control);
    case kDisplayMode_Cutoff:
    case kDisplayMode_LFORate:
        display_.choosePermanent(tag == kDisplayMode_Cutoff);
        set(kDisplayParameterMode, tag == kDisplayMode_Cutoff ? kCutoffShown : kRateAsked);
        return moveMix(control); // the effect hears of Alt and of the tag as from the mix
    case kDryWetMix:
        return moveMix(control);
    case kInverseInputLink:
        set(tag, control.getValue());
        return control.setDirty();
    default:
        if (isParameter(tag) && !isWithoutControl(tag))
            automate(control);
    }
}

// What a gesture consists of

void PanelGestures::automate(CControl& control) {
    if (panel_.effect)
        panel_.effect->setParameterAutomated(control.getTag(), control.getValue());
    control.setDirty();
}

void PanelGestures::set(std::int32_t index, float value) const {
    if (panel_.effect)
        panel_.effect->setParameter(index, value);
}

void PanelGestures::countForLearning(bool doesCount) const {
    if (panel_.effect)
        panel_.effect->enableLearnHooks(doesCount);
}

/// From here on nothing counts for learning: the quantity on the display is no gesture's target.
void PanelGestures::showQuantity(float quantity) {
    countForLearning(false);
    set(kDisplayParameterMode, quantity);
}

void PanelGestures::showRate() {
    showQuantity(kRateShown);
}

/// As the toolkit's bit for the key, which the effect takes for "not 0".
void PanelGestures::tellAlt(const CControl& control) const {
    const CFrame* const frame = control.getFrame();
    const std::int32_t modifiers = frame ? frame->getCurrentMouseButtons().getModifierState() : 0;
    set(kDryWetAltVol, static_cast<float>(modifiers & kAlt));
}

// Controls with ways of their own

/// A press that changes nothing but the button's mode is no gesture to learn.
void PanelGestures::changeFreeze(CControl& control) {
    if (auto* const button = dynamic_cast<ZMTMonoAndBistableButton*>(&control))
        countForLearning(!button->isModeChangeNotification());
    automate(control);
}

void PanelGestures::changeSyncMode(CControl& control) {
    automate(control);
    if (CControl* const rate = panel_.controls.find(kLFOFreq))
        if (rate->getValue() != panel_.value(kLFOFreq))
            rate->setValue(panel_.value(kLFOFreq));
    display_.touch();
    showRate();
}

void PanelGestures::changeCutoff(CControl& control) {
    display_.touch();
    automate(control);
    showQuantity(kCutoffShown);
}

/// The effect makes a cut-off of the slider's place, and records that one.
void PanelGestures::moveSlider(CControl& control) {
    display_.touch();
    set(kFilterFreqSlider, control.getValue());
    countForLearning(false);
    if (panel_.isOn(kDisplayParameterMode))
        set(kDisplayParameterMode, kCutoffShown);
    control.setDirty();
}

void PanelGestures::turnLfoEncoder(CControl& control) {
    auto* const encoder = dynamic_cast<CEcncoderKnob03*>(&control);
    if (!encoder || !panel_.effect)
        return;
    display_.touch();
    switch (encoders_.turnLfo(*encoder)) {
    case EncoderSteps::Moved::Rate:
        countForLearning(false);
        if (!panel_.isOn(kDisplayParameterMode))
            set(kDisplayParameterMode, kRateShown);
        break;
    case EncoderSteps::Moved::Tempo:
        display_.touchTempo();
        set(kLFOEncoder, 0.0F); // the rate follows the tempo at once
        break;
    default:
        break;
    }
}

void PanelGestures::turnCutoffEncoder(CControl& control) {
    auto* const encoder = dynamic_cast<CEcncoderKnob03*>(&control);
    if (!encoder || !panel_.effect)
        return;
    display_.touch();
    encoders_.turnCutoff(*encoder);
    countForLearning(false);
    if (panel_.isOn(kDisplayParameterMode))
        set(kDisplayParameterMode, kCutoffShown);
}

void PanelGestures::moveMix(CControl& control) {
    countForLearning(false);
    tellAlt(control);
    countForLearning(true);
    set(control.getTag(), control.getValue());
    control.setDirty();
}

} // namespace pedl
