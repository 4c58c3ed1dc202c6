#pragma once

#include "editor/ControlSet.h"
#include "editor/Panel.h"
#include "presets/CPresetSystemEffect.h"

namespace pedl {

/// Which MIDI controller moves what is under the mouse, and the lamp that tells that controllers
/// arrive. Thread: the editor's.
class MidiDisplays {
public:
    void opened();

    /// A controller of the received channel has moved.
    void noteActivity() { midiActivity_ = true; }

    void idle(CPresetSystemEffect& effect, const VSTGUI::CFrame& frame, const ControlSet& controls,
              const MouseState& mouse);

private:
    void showController(CPresetSystemEffect& effect, const VSTGUI::CFrame& frame,
                        const ControlSet& controls, const MouseState& mouse) const;
    void showActivity(const ControlSet& controls);

    bool midiActivity_ = false;
    TickMs midiLampTime_ = 0;
};

} // namespace pedl
