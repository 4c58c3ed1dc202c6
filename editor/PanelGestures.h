#pragma once

#include "editor/DisplayChoice.h"
#include "editor/EncoderSteps.h"
#include "editor/Panel.h"

namespace pedl {

/// What the user does with the panel's controls reaches the effect, and through it the host.
///
/// Each gesture counts for MIDI learn, except for what only shows another quantity or another mode.
/// Thread: the editor's.
class PanelGestures {
public:
    PanelGestures(Panel& panel, DisplayChoice& display)
        : panel_(panel), display_(display), encoders_(panel) {}

    /// A control of the panel has a new value. The host may close the window meanwhile.
    void valueChanged(VSTGUI::CControl& control);

private:
    void automate(VSTGUI::CControl& control);
    void set(std::int32_t index, float value) const;
    void showRate();
    void showQuantity(float quantity);
    void countForLearning(bool doesCount) const;
    void tellAlt(const VSTGUI::CControl& control) const;

    void changeFreeze(VSTGUI::CControl& control);
    void changeSyncMode(VSTGUI::CControl& control);
    void changeCutoff(VSTGUI::CControl& control);
    void moveSlider(VSTGUI::CControl& control);
    void turnLfoEncoder(VSTGUI::CControl& control);
    void turnCutoffEncoder(VSTGUI::CControl& control);
    void moveMix(VSTGUI::CControl& control);

    Panel& panel_;
    DisplayChoice& display_;
    EncoderSteps encoders_;
};

} // namespace pedl
