#include "editor/MidiDisplays.h"

#include "editor/ControlBuilder.h"
#include "editor/HintLine.h"
#include "parameters/BarTag.h"
#include "parameters/ListPosition.h"
#include "presets/MidiNames.h"
#include "vstgui/lib/controls/cparamdisplay.h"

#include <algorithm>
#include <utility>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr TickMs kLampMs = 150;
constexpr CColor kUnavailable(163, 163, 145, 255);

} // namespace

void MidiDisplays::opened() {
    midiLampTime_ = IPlatformFrame::getTicks();
}

void MidiDisplays::idle(CPresetSystemEffect& effect, const CFrame& frame,
                        const ControlSet& controls, const MouseState& mouse) {
    showController(effect, frame, controls, mouse);
    showActivity(controls);
}

void MidiDisplays::showController(CPresetSystemEffect& effect, const CFrame& frame,
                                  const ControlSet& controls, const MouseState& mouse) const {
    auto* const display = controls.find<CParamDisplay>(kMidiCCDisplay);
    if (!display)
        return;
    std::int32_t position = kNoControllerText;
    bool isAvailable = true;
    if (const CControl* const control = controlAt(frame, mouse.where)) {
        const std::int32_t parameter = effect.learnTarget(control->getTag());
        isAvailable = !effect.isNotLearnable(parameter);
        if (!isAvailable)
            position = kAssignmentNotAvailable;
        else if (isParameter(parameter) && !mouse.isAnyButtonDown())
            position = std::min(effect.midiMap().controllerOf(parameter), kControllerNotAssigned);
    }
    const CColor colour = isAvailable ? kInkOnCream : kUnavailable;
    if (display->getFontColor() != colour)
        display->setFontColor(colour);
    display->setValue(listValue(position, kNumControllerTexts));
}

void MidiDisplays::showActivity(const ControlSet& controls) {
    const TickMs now = IPlatformFrame::getTicks();
    const bool hasMoved = std::exchange(midiActivity_, false);
    if (hasMoved)
        midiLampTime_ = now;
    else if (now - midiLampTime_ <= kLampMs)
        return;
    if (CControl* const lamp = controls.find(kMidiActivityLED))
        lamp->setValue(hasMoved ? 1.0F : 0.0F);
}

} // namespace pedl
