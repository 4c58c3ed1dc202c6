#pragma once

#include "presets/ProgramBank.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace pedl {

class DiagnosticStream;

/// How the lines of repaired values name the place.
enum class RepairPlace {
    Bank,     ///< with slot and name of the program
    Program,  ///< the same in other words
    RawChunk, ///< without a program
};

/// Puts stored names and values into slots of the bank, as the readers of every layout do it.
///
/// Values are repaired; each repair is a line in `diagnostics`. Slots are 0 to 139; the caller sees
/// to it. Thread: any but audio.
class SlotLoader {
public:
    SlotLoader(ProgramBank& bank, DiagnosticStream& diagnostics, RepairPlace place) noexcept
        : bank_(bank), diagnostics_(diagnostics), place_(place) {}

    /// Makes the slot the edit snapshot under a stored name of 24 bytes.
    void begin(std::int32_t slot, std::span<const std::byte, kProgramNameBytes> name);

    /// @param parameter  one that does not exist is reported like any other, and not stored
    void setValue(std::int32_t slot, std::uint32_t parameter, float value);

private:
    void report(std::int32_t slot, std::int32_t parameter, float value);

    ProgramBank& bank_;
    DiagnosticStream& diagnostics_;
    RepairPlace place_;
};

} // namespace pedl
