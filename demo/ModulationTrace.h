#pragma once

#include <cstdint>
#include <vector>

namespace pedl::demo {

/// Frames in a block of what is traced: a point each 1.3 ms at 48 kHz.
constexpr std::int32_t kBlockFrames = 64;

/// What moved the sound, read after each block.
struct ModulationPoint {
    double seconds = 0.0;
    double cutoffLeftHz = 0.0;
    double cutoffRightHz = 0.0;
    double gainLeft = 1.0; ///< linear: LFO, envelope and its makeup together
    double gainRight = 1.0;
};

using ModulationTrace = std::vector<ModulationPoint>;

/// Whether left and right go different ways, as far as a picture can show it.
[[nodiscard]] bool channelsDiffer(const ModulationTrace& trace);

/// Whether the gain moves, as far as a picture can show it, or stands elsewhere than at 0 dB.
[[nodiscard]] bool gainMatters(const ModulationTrace& trace);

} // namespace pedl::demo
