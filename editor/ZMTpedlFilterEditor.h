#pragma once

#include "editor/CPresetSystemEditor.h"
#include "editor/DisplayChoice.h"
#include "editor/Panel.h"
#include "editor/PanelGestures.h"
#include "editor/PanelMeters.h"
#include "editor/PanelReflection.h"
#include "plugin/ZMTpedlFilterEffect.h"

namespace pedl {

/// The plug-in's window: the pedal's face with every control of `ControlLayout.h`.
///
/// One for the whole life of its effect; the window may open and close any number of times, and
/// each opening builds every control from what the effect holds. Opening changes nothing and tells
/// the host nothing. The editor outlives its effect, which detaches it.
///
/// Thread: a host calls it from one thread at a time. The effect may tell it of changes from any.
class ZMTpedlFilterEditor : public CPresetSystemEditor {
public:
    explicit ZMTpedlFilterEditor(ZMTpedlFilterEffect* effect, EditorSurroundings surroundings = {});
    ~ZMTpedlFilterEditor() override;

    void detach() override;

    /// Builds the window inside the host's. An open one is closed before.
    /// @return false, and whatever was built goes with `close`, where a bitmap is missing
    bool open(void* parentWindow) override;
    void close() override;
    void idle() override;
    void setParameter(std::int32_t index, float value) override;
    void valueChanged(VSTGUI::CControl* control) override;

private:
    bool build();
    bool openPanel(const ControlMakings& makings);
    [[nodiscard]] bool isAboutShown() const;
    void panelChanged(std::int32_t index, float value, bool isLate) override;

    Counted<VSTGUI::CBitmap> background_;
    Panel panel_;
    DisplayChoice display_{panel_};
    PanelGestures gestures_{panel_, display_};
    PanelReflection reflection_{panel_, display_};
    PanelMeters meters_{panel_};
};

} // namespace pedl
