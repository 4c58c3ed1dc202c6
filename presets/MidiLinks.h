#pragma once

#include "parameters/ParameterIndex.h"

#include <array>
#include <optional>

namespace pedl {

/// The channel value that stands for all channels; stored data without a channel mean it.
constexpr float kAllChannelsValue = 1.0F;

/// MIDI settings as stored data carry them: one link value for each parameter, and the channel.
///
/// What was not stored, or was not usable, is absent and stays as it is. Values are those of
/// `MidiMap::linkValue` and `MidiMap::channelValue`; an unlinked parameter's lies above 1.
struct MidiLinks {
    std::array<std::optional<float>, kNumParams> linkValue{};
    std::optional<float> channelValue;

    friend bool operator==(const MidiLinks&, const MidiLinks&) = default;
};

} // namespace pedl
