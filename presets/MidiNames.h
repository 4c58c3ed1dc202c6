#pragma once

#include <cstdint>
#include <string_view>

namespace pedl {

// Positions of the controller display's list that are no controller numbers.
constexpr std::int32_t kControllerNotAssigned = 128;
constexpr std::int32_t kAssignmentNotAvailable = 129;
constexpr std::int32_t kNoControllerText = 130;
constexpr std::int32_t kNumControllerTexts = 131;

constexpr std::int32_t kNumChannelTexts = 18;

/// What the controller display shows for a value: a controller with its number, or why there is
/// none.
///
/// @param normalised  each 131st of 0..1 is a position; outside it the nearer end, NaN the lower
///
/// The text lives as long as the library. Thread: any, real time.
[[nodiscard]] std::string_view controllerText(float normalised) noexcept;

/// "OFF", "Ch 1" to "Ch 16", or "OMNI".
///
/// @param normalised  each 18th of 0..1 is a position; outside it the nearer end, NaN the lower
///
/// The text lives as long as the library. Thread: any, real time.
[[nodiscard]] std::string_view channelText(float normalised) noexcept;

} // namespace pedl
