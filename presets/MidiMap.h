#pragma once

#include "foundation/basics/Relaxed.h"
#include "parameters/ParameterIndex.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace pedl {

constexpr std::int32_t kNumControllers = 128;

[[nodiscard]] constexpr bool isController(std::int32_t number) noexcept {
    return number >= 0 && number < kNumControllers;
}

/// Links between MIDI continuous controllers and parameters, and the channel they are received on.
///
/// Each parameter knows its controller and each controller its parameter. Learning and forgetting
/// keep both ends of a link together; link values, as stored data and hosts set them, may part them
/// until `rebuild`. A parameter or controller number that does not exist is let pass without
/// effect.
///
/// Thread: any, real time. Each entry is `Relaxed` on its own, so a controller that moves
/// while links are being changed follows the old or the new one.
class MidiMap {
public:
    static constexpr std::int32_t kNone = 999; ///< no controller, no parameter
    static constexpr std::int32_t kChannelOff = 0;
    static constexpr std::int32_t kAllChannels = 17; ///< 1 to 16 between are single channels

    MidiMap() noexcept { clear(); }

    // Links

    /// Links both ways. What either end was linked to before keeps its own end of that link.
    void link(std::int32_t parameter, std::int32_t controller) noexcept;

    /// Links both ways after every earlier link of either end is gone.
    void relink(std::int32_t parameter, std::int32_t controller) noexcept;

    void forgetParameter(std::int32_t parameter) noexcept;
    void forgetController(std::int32_t controller) noexcept;

    /// The controller of a parameter, or `kNone`.
    [[nodiscard]] std::int32_t controllerOf(std::int32_t parameter) const noexcept;

    /// The parameter of a controller if that parameter has any controller, else `kNone`.
    [[nodiscard]] std::int32_t parameterOf(std::int32_t controller) const noexcept;

    /// The parameter that a controller moves, or `kNone`. Unlike `parameterOf`, this counts what
    /// `setLinkValue` left behind.
    [[nodiscard]] std::int32_t drivenBy(std::int32_t controller) const noexcept;

    /// Takes all links away; the channel stays.
    void clear() noexcept;

    /// Makes the controllers' ends anew from the parameters' ends. Of several parameters with one
    /// controller the first keeps it.
    void rebuild() noexcept;

    // As one normalised value each, as chunks and hosts carry them

    /// The link of a parameter: what `setLinkValue` set last, else the middle of the controller's
    /// 129th, which lies above 1 for "none". 0 where there is no such parameter.
    [[nodiscard]] float linkValue(std::int32_t parameter) const noexcept;

    /// @param normalised  each 129th of 0..1 is a controller, the last one none; NaN counts as 0
    void setLinkValue(std::int32_t parameter, float normalised) noexcept;

    [[nodiscard]] float channelValue() const noexcept;

    /// @param normalised  each 18th of 0..1 is a channel: off, 1 to 16, all; NaN counts as 0
    void setChannelValue(float normalised) noexcept;

    // Channel

    [[nodiscard]] std::int32_t channel() const noexcept;

    /// Whether a message with this status byte is on the channel.
    [[nodiscard]] bool receives(std::uint8_t status) const noexcept;

private:
    void unlink(std::int32_t parameter) noexcept;

    std::array<Relaxed<std::int32_t>, kNumParams> controllerOfParameter_;
    std::array<Relaxed<std::int32_t>, kNumControllers> parameterOfController_;
    std::array<Relaxed<float>, kNumParams> linkValue_;
    Relaxed<std::int32_t> channel_{kAllChannels};
};

} // namespace pedl
