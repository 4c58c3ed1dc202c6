#pragma once

#include "presets/factory/ProgramTable.h"

#include <string>

namespace pedl {

/// The table as the source of `presets/FactoryTable.h`: every value bit for bit.
[[nodiscard]] std::string valuesAsSource(const ProgramTable& table);

/// Its words as the source of `presets/FactoryNotes.h`.
[[nodiscard]] std::string notesAsSource(const ProgramTable& table);

/// The page for players, docs/programs.md.
[[nodiscard]] std::string programsPage(const ProgramTable& table);

} // namespace pedl
