#include "editor/CPresetSystemEditor.h"

#include "parameters/BarTag.h"

#include <utility>

// The editor's life and what the effect tells it. What the user does with the bar is in
// `PresetBarGestures.cpp`, its files in `PresetBarFiles.cpp`.

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr double kLabelFontPixels = 11;
constexpr double kBarFontPixels = 10; // at which the longest hint fits into its line

/// A font of the editor's own: the hint line changes the style of its one.
Counted<CFontDesc> ownFont(double pixels) {
    return adopted(new CFontDesc(kNormalFontSmall->getName(), pixels));
}

} // namespace

CPresetSystemEditor::CPresetSystemEditor(CPresetSystemEffect* owner,
                                         EditorSurroundings surroundings)
    : AEffGUIEditor(static_cast<AudioEffect*>(owner)), effect_(owner),
      surroundings_(std::move(surroundings)), labelFont_(ownFont(kLabelFontPixels)),
      barFont_(ownFont(kBarFontPixels)), view_(*this) {
    if (effect_)
        effect_->setView(&view_);
}

CPresetSystemEditor::~CPresetSystemEditor() {
    CPresetSystemEditor::close();
    CPresetSystemEditor::detach();
}

void CPresetSystemEditor::detach() {
    view_.closed();
    effect = nullptr; // the toolkit's own way to it
    if (CPresetSystemEffect* const left = std::exchange(effect_, nullptr)) {
        left->setView(nullptr);
        left->setEditor(nullptr);
    }
}

bool CPresetSystemEditor::openPresetBar(const ControlMakings& makings) {
    for (const ControlRow& row : kBarRows) {
        CControl* const control = buildBarControl(row, makings);
        if (!control)
            return false;
        bar_.add(row.tag, control);
        if (row.tag == kHintsOnOff)
            control->setValue(hints_.areHintsEnabled() ? 1.0F : 0.0F);
        showIn(frame, control);
    }
    midi_.opened();
    effect_->stopLearn();
    effect_->stopForget();
    return true;
}

void CPresetSystemEditor::close() {
    view_.closed();
    if (CFrame* const closing = std::exchange(frame, nullptr))
        closing->close();
    bar_.clear();
    AEffGUIEditor::close();
}

void CPresetSystemEditor::idle() {
    view_.takeThread();
    view_.applyPending();
    AEffGUIEditor::idle();
    if (!effect_ || !frame)
        return;
    mouse_ = mouseIn(*frame);
    midi_.idle(*effect_, *frame, bar_, mouse_);
    hints_.idle(*effect_, *frame, bar_, mouse_);
}

void CPresetSystemEditor::beginEdit(std::int32_t index) {
    if (!isParameter(index))
        return;
    ++openEdits_[static_cast<std::size_t>(index)];
    AEffGUIEditor::beginEdit(index);
}

void CPresetSystemEditor::endEdit(std::int32_t index) {
    if (!isParameter(index) || openEdits_[static_cast<std::size_t>(index)] == 0)
        return;
    --openEdits_[static_cast<std::size_t>(index)];
    AEffGUIEditor::endEdit(index);
}

// What the effect has changed

void CPresetSystemEditor::applyChange(std::int32_t index, float value, bool isLate) {
    if (!frame || !effect_)
        return;
    switch (index) {
    case kPresetNameEdit:
        return showName(effect_->currentSlot());
    case kPresetMenu:
        return showMenu(value);
    case kMidiChannel:
        return showChannel();
    case kMidiLearn:
    case kMidiForget:
        return bar_.setValue(index, 0.0F);
    case kMidiActivityLED:
        return midi_.noteActivity();
    default:
        panelChanged(index, value, isLate);
    }
}

} // namespace pedl
