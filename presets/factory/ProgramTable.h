#pragma once

#include "foundation/text/Result.h"
#include "presets/ProgramRecord.h"

#include <string>
#include <string_view>
#include <vector>

namespace pedl {

/// One program of the table, or one for several slots that lie side by side.
struct TableProgram {
    int firstSlot = 0;
    int lastSlot = 0;
    ProgramRecord record;
    bool leavesSpare = false; ///< the factory does not write `kParam3` into the slot
    std::string family;       ///< of sounds; one of the table's own list
    std::string material;     ///< what it is judged on; one of the table's own list
    std::string purpose;      ///< what it is for and on which instrument
    std::string turnFirst;    ///< where a player's hand goes first
};

struct ProgramTable {
    std::vector<std::string> families; ///< in the order in which they are told
    std::vector<std::string> materials;
    std::vector<TableProgram> programs; ///< in slot order, every slot once
};

/// Reads the table of factory programs; its own head describes the form.
///
/// A program is "Default" with what its lines say. One that follows a tempo also gets the LFO rate
/// of its note at its own tempo, for hosts that tell no time. The table is refused whole, with the
/// number of the line, when a slot is missing or told twice, a name does not fit or is used twice,
/// a line of words is missing, or a value is unknown, set twice, of the wrong unit or no
/// difference.
Result<ProgramTable> readProgramTable(std::string_view text);

} // namespace pedl
