#pragma once

#include "parameters/ParameterIndex.h"

#include <cstdint>

namespace pedl {

/// Tags of the preset bar's controls. The parameter that sets the MIDI channel is one of them.
enum BarTag : std::int32_t {
    kPresetNameEdit = kAllParams,
    kPresetPrevNext,
    kBankLoad,
    kBankSave,
    kPresetLoad,
    kPresetSave,
    kMidiCCDisplay,
    kMidiLearn,
    kMidiSettingsLoad,
    kMidiSettingsSave,
    kMidiSettingsDefault,
    kMidiForget,
    kMidiActivityLED = kMidiChannel + 1,
    kMidiReset,
    kPresetMenu,
    kBankDefault,
    kPresetDefault,
    kSlotASave,
    kSlotBSave,
    kSlotARecall,
    kSlotBRecall,
    kManual,
    kHintLabel = kManual + 2,
    kHintsOnOff,
    kNumTags ///< one beyond the last of all tags
};
static_assert(kMidiForget == 148 && kMidiReset == 151 && kHintsOnOff == 162);

} // namespace pedl
