#pragma once

#include "vstgui/lib/controls/ccontrol.h"
#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/controls/ctextedit.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

#include "tests/support/toolkit/SampleSkin.h"

#include <string>

namespace pedl::test {

/// An editor that shows every control of the toolkit in its states, each beside its name.
///
/// All of them work; what they are set to goes nowhere.
class ToolkitEditor : public VSTGUI::AEffGUIEditor, public VSTGUI::CControlListener {
public:
    static constexpr int kWidth = 521;
    static constexpr int kHeight = 544;
    static constexpr int kNumPrograms = 140; // in the menu
    static constexpr int kProgramsPerColumn = 28;

    /// @param effect  an `AudioEffectX`, or null
    explicit ToolkitEditor(void* effect);
    ~ToolkitEditor() override;

    /// @return whether there is a window
    bool open(void* window) override;
    void close() override;
    void valueChanged(VSTGUI::CControl* control) override;
    void beginEdit(std::int32_t /*index*/) override {}
    void endEdit(std::int32_t /*index*/) override {}

    // While open
    VSTGUI::COptionMenu* programs() { return programs_; }
    VSTGUI::CTextEdit* nameField() { return name_; }
    /// Asks for a file in `folder`.
    void askForFile(const std::string& folder);

private:
    void addPictures();
    void addDisplays();
    void addLabels();
    void addFields();

    VSTGUI::CTextLabel* addText(const VSTGUI::CRect& place, const char* text,
                                VSTGUI::CHoriTxtAlign align = VSTGUI::kLeftText);
    template <typename Make>
    void addRow(const char* name, Picture picture, VSTGUI::CCoord left, VSTGUI::CCoord top,
                int count, Make make);
    void addControl(VSTGUI::CControl* control, double normalised = 0.0);

    VSTGUI::COptionMenu* programs_ = nullptr;
    VSTGUI::CTextEdit* name_ = nullptr;
};

} // namespace pedl::test
