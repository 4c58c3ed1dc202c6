#pragma once

#include <array>
#include <cstdint>

namespace pedl {

/// Steps of one LFO cycle; a power of two, so that an index wraps by a mask.
constexpr int kWaveSteps = 2048;
constexpr int kWaveMask = kWaveSteps - 1;

using WaveTable = std::array<double, kWaveSteps>;

/// One cycle of each periodic wave.
///
/// Threads: reading any, real time; `shared` any but audio, since it may have to build.
struct LfoWaves {
    WaveTable sine;     ///< 0..1
    WaveTable triangle; ///< 0..1
    WaveTable sawUp;    ///< 0..1, half way at its start, the jump in the middle
    WaveTable spike;    ///< -1..1: a narrow peak up, half a cycle later one down

    /// The tables of the process; the first caller builds them.
    [[nodiscard]] static const LfoWaves& shared();
};

/// Random waves: new ones for each instance and each start, by design.
///
/// Thread: reading audio, real time; `draw` while no audio runs.
struct RandomWaves {
    WaveTable values; ///< 0..1, pushed towards both ends
    WaveTable steps;  ///< -1..1 (the first 0..1), neighbours at least 0.15 apart in magnitude

    /// Draws both tables, first the values, then the steps, from one generator started at `seed`.
    void draw(std::uint32_t seed) noexcept;
};

} // namespace pedl
