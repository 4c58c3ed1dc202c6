#pragma once

#include "editor/ControlBuilder.h"
#include "editor/ControlSet.h"
#include "editor/EditorSurroundings.h"
#include "editor/EditorView.h"
#include "editor/FileOperations.h"
#include "editor/HintLine.h"
#include "editor/MidiDisplays.h"
#include "presets/CPresetSystemEffect.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

#include <array>

namespace pedl {

/// An editor with the preset bar along its bottom: programs, files, user defaults, memories, MIDI
/// links and the hint line. A derived editor adds the panel above it.
///
/// The file operations are virtual, so that a derived editor may have its own.
/// Thread: a host calls it from one thread at a time. The effect may tell it of changes from any.
class CPresetSystemEditor : public AEffGUIEditor, public CControlListener, private ChangeTarget {
public:
    /// Registers itself with the effect, which tells it of changes from here on.
    CPresetSystemEditor(CPresetSystemEffect* effect, EditorSurroundings surroundings);
    ~CPresetSystemEditor() override;

    /// The effect goes and the editor stays: nothing reaches either from the other any more. An
    /// open window closes where the calling thread is the one that has opened it or let it idle.
    virtual void detach();

    void close() override;
    void idle() override;
    void valueChanged(VSTGUI::CControl* control) override;
    /// The host hears of its own parameters alone; edits of other tags stay here, and so does the
    /// end of what has not begun (a button's Return key sends such).
    void beginEdit(std::int32_t index) override;
    void endEdit(std::int32_t index) override;

    // Files. `isReversed` takes stored words in the other byte order than the data show.
    virtual void loadBank(bool isReversed);
    virtual void saveBank();
    virtual void saveBankAsDefault();
    virtual void resetBankDefault();
    virtual void loadPreset(bool isReversed);
    virtual void savePreset();
    virtual void savePresetAsDefault();
    virtual void resetPresetDefault();
    virtual void saveToA();
    virtual void saveToB();
    virtual void recallA();
    virtual void recallB();
    virtual void loadMidiSettings(bool isReversed);
    virtual void saveMidiSettings();
    virtual void saveMidiSettingsAsDefault();
    virtual void resetMidiDefault();

protected:
    /// Builds the bar into the open frame, in the order of its table.
    /// @return false where a bitmap is missing; what was built until then stays in the frame
    bool openPresetBar(const ControlMakings& makings);

    /// A change that is the panel's.
    /// @param isLate  it was made on another thread some time ago
    virtual void panelChanged(std::int32_t index, float value, bool isLate) = 0;

    [[nodiscard]] const EditorSurroundings& surroundings() const { return surroundings_; }
    [[nodiscard]] EditorView& view() { return view_; }
    /// As this idle pass found it.
    [[nodiscard]] const MouseState& mouse() const { return mouse_; }
    [[nodiscard]] VSTGUI::CFontRef labelFont() const { return labelFont_; }
    [[nodiscard]] VSTGUI::CFontRef barFont() const { return barFont_; }

private:
    void applyChange(std::int32_t index, float value, bool isLate) override;

    // Gestures on the bar
    void barChanged(VSTGUI::CControl& control);
    void fileButtonPressed(std::int32_t tag, bool isReversed);
    void defaultButtonPressed(std::int32_t tag, bool isReset);
    void rename(VSTGUI::CControl& control);
    void stepProgram(float direction);
    void chooseProgram(float entry);
    void select(std::int32_t slot, const std::string& name);
    void changeChannel(const VSTGUI::CControl& control);
    void learn(bool isOn);
    void forgetLinks(bool isOn);
    void resetMidi(bool toDefault);
    void openManual(VSTGUI::CControl& button);
    void openWebPage();

    // What the effect has changed
    void showName(std::int32_t slot);
    void showMenu(float shownSlot);
    void showChannel();

    void load(FileKind kind, bool isReversed);
    void save(FileKind kind);
    void keepDefault(FileKind kind);
    void dropDefault(FileKind kind);
    void keepMemory(Memory memory);
    void recallMemory(Memory memory);

    CPresetSystemEffect* effect_;
    const EditorSurroundings surroundings_;
    Counted<VSTGUI::CFontDesc> labelFont_;
    Counted<VSTGUI::CFontDesc> barFont_;
    EditorView view_;
    ControlSet bar_;
    HintLine hints_;
    MidiDisplays midi_;
    FileOperations files_{hints_};
    MouseState mouse_;
    std::array<int, kNumParams> openEdits_{};
};

} // namespace pedl
