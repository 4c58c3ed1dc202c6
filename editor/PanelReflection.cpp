#include "editor/PanelReflection.h"

#include "controls/CpedlFilterRadioSlider.h"
#include "controls/ZMTIndicatorLED.h"
#include "controls/ZMTMonoAndBistableButton.h"
#include "parameters/ValueLaws.h"

#include <array>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr std::array kModulationSwitches{kFilterFreqByLFODefeat, kGainByLFODefeat, kGainByENVDefeat,
                                         kFilterFreqByENVDefeat};

} // namespace

void PanelReflection::parameterChanged(std::int32_t index, float value, bool isLate) {
    switch (index) {
    case kPower:
        return showLamp(kPower, kPowerLED, value);
    case kFreezMode:
        return showFreezeMode(value, isLate);
    case kFreez:
        return showLamp(kFreez, kFreezStatusLED, value);
    case kLFOSyncMode:
        showOwnValue(index);
        showOwnValue(kLFOFreq); // a tempo has moved it, and told nobody
        return display_.refresh();
    case kDry:
    case kWet:
        return showLevel(index);
    case kModulationOnOff:
        showOwnValue(index);
        return swapModulationLock();
    case kFreqNoteScaleSwitch:
        return showScale(value);
    case kEfLEDMeter:
    case kLimiterLEDMeter:
    case kSoftSatLED:
        return showOwnValue(index);
    case kFilterFreqSlider:
        return panel_.controls.setValue(index, value);
    case kDisplayParameterMode:
        return display_.refreshWithoutTempo();
    case kDryWetMix:
        redraw(kDry);
        return redraw(kWet);
    case kInverseInputLink:
        redraw(kDry);
        redraw(kWet);
        redraw(kGain);
        return panel_.controls.setValue(index, value);
    default:
        if (isParameter(index))
            showOwnValue(index);
    }
}

/// The effect's own conversions win over the value that was set.
void PanelReflection::showOwnValue(std::int32_t index) {
    panel_.controls.setValue(index, panel_.value(index));
}

void PanelReflection::showLamp(std::int32_t button, std::int32_t lamp, float value) {
    showOwnValue(button);
    panel_.controls.setValue(lamp, laws::twoWayState(value) != 0 ? 1.0F : 0.0F);
    redraw(lamp);
}

/// Who changes the mode wants the button at its rest, and the button tells that. A program brings
/// its own state of the button along: nothing is told then, and a late change may be a program's.
void PanelReflection::showFreezeMode(float value, bool isLate) {
    showOwnValue(kFreezMode);
    auto* const button = panel_.controls.find<ZMTMonoAndBistableButton>(kFreez);
    if (!button || !panel_.effect)
        return;
    const CBaseObjectGuard held(button); // its mode's value is told
    CControlListener* const listener = button->getListener();
    const bool isProgram = isLate || panel_.effect->isProgramLoading();
    if (isProgram)
        button->setListener(nullptr);
    button->setMode(laws::threeWayState(value));
    button->setFlag(value != 0.0F);
    button->setListener(listener);
    if (isProgram)
        showOwnValue(kFreez);
}

/// The program's or the bank's, whichever is heard.
void PanelReflection::showLevel(std::int32_t index) {
    if (panel_.effect)
        panel_.controls.setValue(index, panel_.effect->effectiveDryWetLevel(index));
}

void PanelReflection::showScale(float value) {
    panel_.controls.setValue(kFreqNoteScaleSwitch, value);
    if (auto* const slider = panel_.controls.find<CpedlRadioSlider>(kFilterFreqSlider))
        slider->setOverlaySelector(value == 0.0F ? 0 : 1);
}

void PanelReflection::redraw(std::int32_t tag) {
    if (CControl* const control = panel_.controls.find(tag))
        control->setDirty();
}

void PanelReflection::swapModulationLock() {
    const bool isLocked = panel_.isOn(kModulationOnOff);
    if (isLocked) {
        for (const std::int32_t tag : kModulationSwitches)
            panel_.hide(tag);
        panel_.show(kModulationLockLabel);
        return;
    }
    panel_.hide(kModulationLockLabel);
    for (const std::int32_t tag : kModulationSwitches)
        panel_.show(tag);
}

} // namespace pedl
