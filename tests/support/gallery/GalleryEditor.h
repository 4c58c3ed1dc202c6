#pragma once

#include "vstgui/lib/controls/ccontrol.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

namespace pedl::test {

/// An editor that shows every control in its states, and menu, text field and file dialog of the
/// toolkit. All of them work; what they are set to goes nowhere.
class GalleryEditor : public VSTGUI::AEffGUIEditor, public VSTGUI::CControlListener {
public:
    static constexpr int kWidth = 640;
    static constexpr int kHeight = 500;

    /// @param effect  an `AudioEffectX`, or null
    explicit GalleryEditor(void* effect);
    ~GalleryEditor() override;

    /// @return whether there is a window
    bool open(void* window) override;
    void close() override;
    void valueChanged(VSTGUI::CControl* control) override;
    void beginEdit(std::int32_t /*index*/) override {}
    void endEdit(std::int32_t /*index*/) override {}
};

} // namespace pedl::test
