#pragma once

#include "presets/ProgramBank.h"
#include "presets/StreamFormat.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pedl {

class DiagnosticStream;

/// What the effect says of its MIDI links when it is asked to store them.
struct HeldMidiLinks {
    std::array<float, kNumParams> linkValue{};
    float channelValue = 1.0F;
};

using StreamBytes = std::vector<std::byte>;

// Every stream that is written. Values that are not numbers or lie outside their range are repaired
// in what is written, not in the bank, each with a line in `diagnostics`. Thread: any but audio.

/// The whole bank.
[[nodiscard]] StreamBytes writeBank(const ProgramBank& bank, DiagnosticStream& diagnostics);

/// One slot's program (0 to 139).
[[nodiscard]] StreamBytes writeProgram(const ProgramBank& bank, std::int32_t slot,
                                       DiagnosticStream& diagnostics);

/// The MIDI settings. A parameter without a link is reported, since its value lies above 1.
[[nodiscard]] StreamBytes writeMidi(const HeldMidiLinks& links, DiagnosticStream& diagnostics);

/// What the host stores: the bank and the MIDI links.
void writeChunk(std::span<std::byte, kChunkBytes> chunk, const ProgramBank& bank,
                const HeldMidiLinks& links, DiagnosticStream& diagnostics);

} // namespace pedl
