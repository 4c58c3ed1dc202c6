#pragma once

#include <cstddef>

namespace pedl {

/// Frames a second until the host's rate is known.
constexpr double kStartRateHz = 44100.0;

/// Frames between two control ticks: the grid on which switches, levels and makeup move.
constexpr int kTickFrames = 128;

/// Frames that the stages work on at a time. It divides the tick, so a stretch never crosses one;
/// at 64 all arrays of a stretch stay in the first-level cache.
constexpr int kStretchFrames = 64;
static_assert(kTickFrames % kStretchFrames == 0);

/// One value a frame.
struct alignas(32) MonoStretch {
    double at[kStretchFrames] = {};
};

/// Two values a frame, left and right side by side: the two lanes of every recursion.
struct alignas(32) StereoStretch {
    double at[2 * kStretchFrames] = {};
};

/// Added and taken away again after every recursive update: a decaying state then ends in zero
/// instead of in denormal numbers, whose arithmetic is many times slower.
constexpr double kDenormalGuard = 1e-36;

/// From this magnitude on the guard is less than half a unit of the last place and changes nothing.
constexpr double kGuardMatters = 1e-19;

} // namespace pedl
