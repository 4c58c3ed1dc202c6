#pragma once

#include "presets/ProgramRecord.h"

#include <cstdint>
#include <string_view>

namespace pedl {

class ProgramBank;

/// The name of a factory program, slots 0 to 139.
[[nodiscard]] std::string_view factoryProgramName(std::int32_t slot) noexcept;

/// A factory program with its name, slots 0 to 139.
[[nodiscard]] ProgramRecord factoryProgram(std::int32_t slot) noexcept;

/// Writes all of them into the bank.
void writeFactoryPrograms(ProgramBank& bank) noexcept;

} // namespace pedl
