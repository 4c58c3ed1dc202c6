#include "presets/FactoryPrograms.h"

#include "presets/FactoryTable.h"
#include "presets/ProgramBank.h"

#include <cassert>

namespace pedl {

namespace {

const FactoryEntry& entryOf(std::int32_t slot) {
    assert(isProgramSlot(slot) && "caller checks the slot");
    return kFactoryTable[static_cast<std::size_t>(slot)];
}

} // namespace

std::string_view factoryProgramName(std::int32_t slot) noexcept {
    return nameText(entryOf(slot).program.name);
}

ProgramRecord factoryProgram(std::int32_t slot) noexcept {
    return entryOf(slot).program;
}

void writeFactoryPrograms(ProgramBank& bank) noexcept {
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
        const FactoryEntry& entry = entryOf(slot);
        bank.setStoredName(slot, entry.program.name);
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
            if (parameter != kParam3 || !entry.leavesSpare)
                bank.setValue(slot, parameter,
                              entry.program.normalised[static_cast<std::size_t>(parameter)]);
    }
}

} // namespace pedl
