#pragma once

#include "parameters/ParameterIndex.h"

#include <cstdint>

namespace pedl {

/// Links between MIDI continuous controllers and parameters, and the channel they are received on.
class MidiMap {
public:
    static constexpr std::int32_t kNone = 999; ///< no controller, no parameter

    void link(std::int32_t parameter, std::int32_t controller) noexcept;
    void forgetParameter(std::int32_t parameter) noexcept;
    void forgetController(std::int32_t controller) noexcept;
    [[nodiscard]] std::int32_t controllerOf(std::int32_t parameter) const noexcept;
    [[nodiscard]] std::int32_t parameterOf(std::int32_t controller) const noexcept;
    void clear() noexcept;
    void rebuild() noexcept;

    /// The link of a parameter as one normalised value, as chunks and hosts carry it.
    [[nodiscard]] float linkValue(std::int32_t parameter) const noexcept;
    void setLinkValue(std::int32_t parameter, float normalised) noexcept;

    [[nodiscard]] float channelValue() const noexcept;
    void setChannelValue(float normalised) noexcept;
};

} // namespace pedl
