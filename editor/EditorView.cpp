#include "editor/EditorView.h"

namespace pedl {

void EditorView::opened() {
    takeThread();
    pending_.clear(); // the window was built from what the effect holds
    isOpen_.store(true);
}

void EditorView::applyPending() {
    if (isOpen_.load())
        pending_.take(
            [this](std::int32_t index, float value) { target_.applyChange(index, value, true); });
}

/// What cannot be applied now, for want of memory, is tried again by the next idle.
void EditorView::change(std::int32_t index, float value) noexcept {
    if (!isOpen_.load())
        return;
    if (isEditorsThread()) {
        try {
            return target_.applyChange(index, value, false);
        } catch (...) {
        }
    }
    pending_.mark(index, value);
}

void EditorView::parameterChanged(std::int32_t index, float normalised) noexcept {
    change(index, normalised);
}

void EditorView::programNameChanged(std::string_view /*name*/) noexcept {
    change(kPresetNameEdit, 0.0F);
}

/// Banks bring up to 140 of them: they wait for the program that comes last.
void EditorView::programMenuEntryChanged(std::int32_t /*slot*/) noexcept {
    if (isOpen_.load())
        pending_.mark(kPresetMenu, ChangeTarget::kNoSlot);
}

/// The slot is not current yet when this is told.
void EditorView::programShown(std::int32_t slot) noexcept {
    change(kPresetMenu, static_cast<float>(slot));
}

void EditorView::midiChannelChanged(float normalised) noexcept {
    change(kMidiChannel, normalised);
}

void EditorView::midiActivity() noexcept {
    change(kMidiActivityLED, 1.0F);
}

void EditorView::learnEnded() noexcept {
    change(kMidiLearn, 0.0F);
}

void EditorView::forgetEnded() noexcept {
    change(kMidiForget, 0.0F);
}

} // namespace pedl
