#include "presets/SlotLoader.h"

#include "foundation/platform/DiagnosticStream.h"
#include "presets/ValueRepair.h"

#include <cstring>

namespace pedl {

void SlotLoader::begin(std::int32_t slot, std::span<const std::byte, kProgramNameBytes> name) {
    ProgramName stored;
    std::memcpy(stored.data(), name.data(), name.size());
    bank_.storeEditSnapshot(slot);
    bank_.setStoredName(slot, stored);
}

void SlotLoader::setValue(std::int32_t slot, std::uint32_t parameter, float value) {
    const auto index = static_cast<std::int32_t>(parameter);
    if (!isNormalised(value))
        report(slot, index, value);
    if (isParameter(index))
        bank_.setValue(slot, index, repairedValue(value));
}

void SlotLoader::report(std::int32_t slot, std::int32_t parameter, float value) {
    const ProgramName name = bank_.name(slot);
    switch (place_) {
    case RepairPlace::Bank:
        diagnostics_.line(
            programRepairText(parameter, value, "on load of preset", slot, nameText(name)));
        break;
    case RepairPlace::Program:
        diagnostics_.line(
            programRepairText(parameter, value, "on load, preset:", slot, nameText(name)));
        break;
    case RepairPlace::RawChunk:
        diagnostics_.line(plainRepairText(parameter, value, "on set of old chunk"));
        break;
    }
}

} // namespace pedl
