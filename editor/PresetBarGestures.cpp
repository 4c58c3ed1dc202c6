// What the user does with the preset bar: programs, MIDI links, manual, web page, hints.

#include "editor/CPresetSystemEditor.h"
#include "editor/NoticeView.h"
#include "foundation/platform/FileReading.h"
#include "parameters/BarTag.h"
#include "parameters/ListPosition.h"
#include "presets/HintText.h"
#include "presets/MidiNames.h"

#include "controls/CZMKickButton.h"
#include "controls/CZMParamDisplay.h"
#include "controls/CZMTTextEdit.h"
#include "vstgui/lib/controls/coptionmenu.h"

#include <algorithm>
#include <optional>
#include <string>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kDoubleClick = 0.75F; // from here on; below it Control was held
constexpr float kRightClick = 0.5F;
constexpr std::size_t kShownNameLength = 24;

std::string slotName(const CPresetSystemEffect& effect, std::int32_t slot) {
    const ProgramName name = effect.bank().name(slot);
    return std::string(nameText(name));
}

/// The user's own manual where there is one, else the installed one, else nothing.
std::string firstFile(const std::optional<std::string>& own, const std::string& installed) {
    if (own && canRead(*own))
        return *own;
    return canRead(installed) ? installed : std::string();
}

} // namespace

void CPresetSystemEditor::valueChanged(CControl* control) {
    if (!effect_ || !control)
        return;
    const CBaseObjectGuard held(control);
    barChanged(*control);
}

void CPresetSystemEditor::barChanged(CControl& control) {
    const std::int32_t tag = control.getTag();
    const float value = control.getValue();
    switch (tag) {
    case kPresetNameEdit:
        return rename(control);
    case kPresetPrevNext:
        return stepProgram(value);
    case kPresetMenu:
        return chooseProgram(value);
    case kBankDefault:
    case kPresetDefault:
    case kMidiSettingsDefault:
        return defaultButtonPressed(tag, value < kDoubleClick);
    case kMidiLearn:
        return learn(value != 0.0F);
    case kMidiForget:
        return forgetLinks(value != 0.0F);
    case kMidiChannel:
        return changeChannel(control);
    case kMidiReset:
        return resetMidi(value < kDoubleClick);
    case kManual:
        return openManual(control);
    case kHintLabel:
        return openWebPage();
    case kHintsOnOff:
        return hints_.enableHints(value != 0.0F);
    default:
        return fileButtonPressed(tag, value == kRightClick);
    }
}

// Programs

void CPresetSystemEditor::rename(CControl& control) {
    auto* const edit = dynamic_cast<CZMTTextEdit*>(&control);
    if (!edit)
        return;
    const char* const text = edit->getText();
    const std::string name = std::string(text ? text : "").substr(0, kShownNameLength);
    edit->setText(name.c_str());
    if (auto* const menu = bar_.find<COptionMenu>(kPresetMenu))
        if (CMenuItem* const entry = menu->getEntry(effect_->currentSlot()))
            entry->setTitle(name.c_str());
    effect_->renameCurrentProgram(name.c_str());
}

/// At either end the program stays, and is sent again.
void CPresetSystemEditor::stepProgram(float direction) {
    if (direction == 0.0F)
        return; // the rocker is at rest again
    const std::int32_t step = direction > 0.0F ? 1 : -1;
    const std::int32_t slot = std::clamp(effect_->currentSlot() + step, 0, kNumPrograms - 1);
    select(slot, slotName(*effect_, slot));
}

void CPresetSystemEditor::chooseProgram(float entry) {
    const auto slot = std::clamp(static_cast<std::int32_t>(entry + 0.5F), 0, kNumPrograms - 1);
    std::string name = slotName(*effect_, slot);
    if (auto* const menu = bar_.find<COptionMenu>(kPresetMenu))
        if (const CMenuItem* const chosen = menu->getEntry(slot))
            name = chosen->getTitle();
    select(slot, name);
}

void CPresetSystemEditor::select(std::int32_t slot, const std::string& name) {
    if (auto* const menu = bar_.find<COptionMenu>(kPresetMenu))
        markProgram(*menu, slot);
    if (auto* const edit = bar_.find<CZMTTextEdit>(kPresetNameEdit))
        edit->setText(name.c_str());
    effect_->selectProgram(slot);
    effect_->renameCurrentProgram(name.c_str());
}

void CPresetSystemEditor::showName(std::int32_t slot) {
    const std::string name = slotName(*effect_, slot);
    if (auto* const edit = bar_.find<CZMTTextEdit>(kPresetNameEdit))
        edit->setText(name.c_str());
    if (auto* const menu = bar_.find<COptionMenu>(kPresetMenu))
        if (CMenuItem* const entry = menu->getEntry(slot))
            entry->setTitle(name.c_str());
}

void CPresetSystemEditor::showMenu(float shownSlot) {
    auto* const menu = bar_.find<COptionMenu>(kPresetMenu);
    if (!menu)
        return;
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        if (CMenuItem* const entry = menu->getEntry(slot))
            entry->setTitle(slotName(*effect_, slot).c_str());
    if (shownSlot == kNoSlot)
        return;
    const auto slot = static_cast<std::int32_t>(shownSlot);
    markProgram(*menu, slot);
    showName(slot);
}

// MIDI

void CPresetSystemEditor::learn(bool isOn) {
    effect_->stopForget();
    if (isOn)
        effect_->startLearn();
    else
        effect_->stopLearn();
}

void CPresetSystemEditor::forgetLinks(bool isOn) {
    effect_->stopLearn();
    if (isOn)
        effect_->startForget();
    else
        effect_->stopForget();
}

void CPresetSystemEditor::resetMidi(bool toDefault) {
    effect_->stopLearn();
    effect_->stopForget();
    if (toDefault)
        effect_->resetMidiToDefault();
    else
        effect_->midiMap().clear();
}

/// The rocker steps the channel; the display has stepped by itself already.
void CPresetSystemEditor::changeChannel(const CControl& control) {
    const auto* const display = bar_.find<CZMParamDisplay>(kMidiChannel);
    if (!display)
        return;
    if (&control == display)
        return effect_->setParameter(kMidiChannel, display->getValue());
    const float direction = control.getValue();
    if (direction == 0.0F)
        return; // the rocker is at rest again
    const std::int32_t channel =
        listPosition(effect_->getParameter(kMidiChannel), kNumChannelTexts) +
        (direction > 0.0F ? 1 : -1);
    effect_->setParameter(
        kMidiChannel, listValue(std::clamp(channel, 0, kNumChannelTexts - 1), kNumChannelTexts));
}

/// The middle of its step, whatever the host has set.
void CPresetSystemEditor::showChannel() {
    if (auto* const display = bar_.find<CZMParamDisplay>(kMidiChannel))
        display->setValue(effect_->getParameter(kMidiChannel));
}

// Manual and web page

void CPresetSystemEditor::openManual(CControl& button) {
    const std::string path =
        firstFile(effect_->userDefaults().manualPath(), surroundings_.installedManual);
    if (path.empty())
        NoticeView::show(*frame, "", "Could not open user manual");
    else if (!surroundings_.opener || !surroundings_.opener->open(path))
        NoticeView::show(*frame, "Could not open manual file",
                         "Make sure Acrobat Reader is installed");
    if (auto* const key = dynamic_cast<CZMKickButton*>(&button))
        key->pressed = false;
    button.setValue(button.getMin());
    button.setDirty();
}

void CPresetSystemEditor::openWebPage() {
    if (!surroundings_.opener || !surroundings_.opener->open(std::string(kWebAddress)))
        hints_.say("No program was found that shows " + std::string(kWebAddress));
}

} // namespace pedl
