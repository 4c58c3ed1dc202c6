#pragma once

#include "presets/ProgramBank.h"
#include "presets/ProgramRecord.h"

#include <array>

namespace pedl {

/// A slot as it leaves the factory.
struct FactoryEntry {
    ProgramRecord program;
    bool leavesSpare; ///< `kParam3` is not written; it keeps the zero of a fresh bank
};

/// Made from presets/factory-programs.txt when the project is built.
extern const std::array<FactoryEntry, kNumPrograms> kFactoryTable;

} // namespace pedl
