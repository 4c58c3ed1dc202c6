#include "presets/StreamReader.h"

#include "foundation/platform/DiagnosticStream.h"
#include "presets/SlotLoader.h"
#include "presets/ValueRepair.h"

#include <cmath>

namespace pedl {

namespace {

bool isProgramHead(const RecordView& record) {
    return record.is(RecordType::ProgramHead, kProgramNameBytes);
}

bool isValue(const RecordView& record) {
    return record.is(RecordType::Value, kPayloadValueOffset + sizeof(float));
}

bool isMidiLinkRecord(const RecordView& record) {
    return record.is(RecordType::MidiLink, kPayloadChannelOffset + sizeof(float));
}

/// @return whether the record has named the slot
bool load(const RecordView& record, std::int32_t slot, SlotLoader& loader) {
    if (isProgramHead(record)) {
        loader.begin(slot, record.payload.first<kProgramNameBytes>());
        return true;
    }
    if (isValue(record))
        loader.setValue(slot, record.word(kPayloadParameterOffset),
                        record.number(kPayloadValueOffset));
    return false;
}

} // namespace

LoadedBank readBank(const StreamView& stream, ProgramBank& bank, DiagnosticStream& diagnostics) {
    LoadedBank loaded;
    if (stream.header.currentSlot < kPrograms)
        loaded.currentSlot = static_cast<std::int32_t>(stream.header.currentSlot);
    SlotLoader loader(bank, diagnostics, RepairPlace::Bank);
    RecordReader records(stream);
    while (const auto record = records.next())
        if (record->slot < kPrograms &&
            load(*record, static_cast<std::int32_t>(record->slot), loader))
            loaded.named.set(record->slot);
    return loaded;
}

bool readProgram(const StreamView& stream, ProgramBank& bank, std::int32_t slot,
                 DiagnosticStream& diagnostics) {
    bool isNamed = false;
    SlotLoader loader(bank, diagnostics, RepairPlace::Program);
    RecordReader records(stream);
    while (const auto record = records.next())
        isNamed |= load(*record, slot, loader);
    return isNamed;
}

MidiLinks readMidiLinks(const StreamView& stream, DiagnosticStream& diagnostics) {
    MidiLinks links;
    RecordReader records(stream);
    while (const auto record = records.next()) {
        if (!isMidiLinkRecord(*record))
            continue;
        if (hasMidiChannel(stream.header))
            links.channelValue = repairedToEnd(record->number(kPayloadChannelOffset));
        const std::uint32_t parameter = record->word(kPayloadParameterOffset);
        if (parameter >= kParameters)
            continue;
        const float value = record->number(kPayloadValueOffset);
        if (std::isnan(value) || value < 0.0F)
            diagnostics.line(
                plainRepairText(static_cast<std::int32_t>(parameter), value, "on load of MIDI"));
        else if (value < 1.0F) // the value of a parameter without a link lies above
            links.linkValue[parameter] = value;
    }
    return links;
}

} // namespace pedl
