// What the hint line says of the preset bar's controls.

#include "parameters/BarTag.h"
#include "presets/CPresetSystemEffect.h"
#include "presets/HintText.h"

#include <array>

namespace pedl {

namespace {

// clang-format off
constexpr auto kHints = std::to_array<Hint>({
    {kPresetNameEdit,      "Click to edit the current preset name"},
    {kPresetPrevNext,      "Click the left/right arrow to switch to the prev/next preset from the list"},
    {kBankLoad,            "Click to load a bank file"},
    {kBankSave,            "Click to save a bank file"},
    {kPresetLoad,          "Click to load a preset file"},
    {kPresetSave,          "Click to save a preset file"},
    {kMidiCCDisplay,       "Displays the currently assigned MIDI CC when hovering over a control"},
    {kMidiLearn,           "MIDI Learn - click to link a plug-in control to a MIDI controller"},
    {kMidiSettingsLoad,    "Click to load MIDI settings from a file"},
    {kMidiSettingsSave,    "Click to save MIDI settings to a file"},
    {kMidiSettingsDefault, "Double click to save the current MIDI settings as default (Ctrl/Cmd-click to reset the default)"},
    {kMidiForget,          "MIDI Forget - click to unlink a plug-in control from a MIDI controller"},
    {kMidiChannel,         "MIDI Channel - allows you to select the MIDI channel to receive MIDI CC messages from"},
    {kPresetMenu,          "Click to see the pop-up menu of all the presets in the currently loaded bank"},
    {kBankDefault,         "Double click to save the current bank as default (Ctrl/Cmd-click to reset the default)"},
    {kPresetDefault,       "Double click to save the current preset as default (Ctrl/Cmd-click to reset the default)"},
    {kSlotASave,           "Click to save the current preset in the A slot (saved on disk)"},
    {kSlotBSave,           "Click to save the current preset in the B slot (saved on disk)"},
    {kSlotARecall,         "Click to recall the current preset from the A slot (saved on disk)"},
    {kSlotBRecall,         "Click to recall the current preset from the B slot (saved on disk)"},
    {kManual,              "Click to open the Operation Manual of plug-in"},
    {kHintLabel,           kWebAddressShort},
    {kHintsOnOff,          "Enable/disable hints"},
});
// clang-format on

} // namespace

void CPresetSystemEffect::getPresetBarHintText(std::int32_t tag, char* text) {
    if (tag == kMidiActivityLED || tag == kMidiReset)
        return; // these two leave the caller's text
    copyHint(text, findHint(kHints, tag));
}

} // namespace pedl
