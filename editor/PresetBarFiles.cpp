// The preset bar's file operations, the user's defaults and his two memories.

#include "editor/CPresetSystemEditor.h"
#include "parameters/BarTag.h"

namespace pedl {

void CPresetSystemEditor::fileButtonPressed(std::int32_t tag, bool isReversed) {
    switch (tag) {
    case kBankLoad:
        return loadBank(isReversed);
    case kBankSave:
        return saveBank();
    case kPresetLoad:
        return loadPreset(isReversed);
    case kPresetSave:
        return savePreset();
    case kMidiSettingsLoad:
        return loadMidiSettings(isReversed);
    case kMidiSettingsSave:
        return saveMidiSettings();
    case kSlotASave:
        return saveToA();
    case kSlotBSave:
        return saveToB();
    case kSlotARecall:
        return recallA();
    case kSlotBRecall:
        return recallB();
    default:
        return; // no control of the bar, or one that only shows
    }
}

void CPresetSystemEditor::defaultButtonPressed(std::int32_t tag, bool isReset) {
    switch (tag) {
    case kBankDefault:
        return isReset ? resetBankDefault() : saveBankAsDefault();
    case kPresetDefault:
        return isReset ? resetPresetDefault() : savePresetAsDefault();
    default:
        return isReset ? resetMidiDefault() : saveMidiSettingsAsDefault();
    }
}

// Files

void CPresetSystemEditor::load(FileKind kind, bool isReversed) {
    if (effect_ && frame)
        files_.load(*effect_, *frame, kind,
                    isReversed ? OrderDecision::Inverted : OrderDecision::AsFound);
}

void CPresetSystemEditor::save(FileKind kind) {
    if (effect_ && frame)
        files_.save(*effect_, *frame, kind);
}

void CPresetSystemEditor::loadBank(bool isReversed) {
    load(FileKind::Bank, isReversed);
}

void CPresetSystemEditor::saveBank() {
    save(FileKind::Bank);
}

void CPresetSystemEditor::loadPreset(bool isReversed) {
    load(FileKind::Program, isReversed);
}

void CPresetSystemEditor::savePreset() {
    save(FileKind::Program);
}

void CPresetSystemEditor::loadMidiSettings(bool isReversed) {
    load(FileKind::MidiSettings, isReversed);
}

void CPresetSystemEditor::saveMidiSettings() {
    save(FileKind::MidiSettings);
}

// What new instances start with

void CPresetSystemEditor::keepDefault(FileKind kind) {
    if (effect_)
        files_.sayUnless(effect_->userDefaults().save(kind), "The default could not be kept");
}

void CPresetSystemEditor::dropDefault(FileKind kind) {
    if (effect_)
        files_.sayUnless(effect_->userDefaults().reset(kind), "The default could not be reset");
}

void CPresetSystemEditor::saveBankAsDefault() {
    keepDefault(FileKind::Bank);
}

void CPresetSystemEditor::resetBankDefault() {
    dropDefault(FileKind::Bank);
}

void CPresetSystemEditor::savePresetAsDefault() {
    keepDefault(FileKind::Program);
}

void CPresetSystemEditor::resetPresetDefault() {
    dropDefault(FileKind::Program);
}

void CPresetSystemEditor::saveMidiSettingsAsDefault() {
    keepDefault(FileKind::MidiSettings);
}

void CPresetSystemEditor::resetMidiDefault() {
    dropDefault(FileKind::MidiSettings);
}

// Memories

void CPresetSystemEditor::keepMemory(Memory memory) {
    if (effect_)
        files_.sayUnless(effect_->userDefaults().store(memory), "The program could not be kept");
}

/// An empty memory changes nothing, without a word.
void CPresetSystemEditor::recallMemory(Memory memory) {
    if (effect_)
        effect_->userDefaults().recall(memory);
}

void CPresetSystemEditor::saveToA() {
    keepMemory(Memory::A);
}

void CPresetSystemEditor::saveToB() {
    keepMemory(Memory::B);
}

void CPresetSystemEditor::recallA() {
    recallMemory(Memory::A);
}

void CPresetSystemEditor::recallB() {
    recallMemory(Memory::B);
}

} // namespace pedl
