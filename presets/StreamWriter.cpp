#include "presets/StreamWriter.h"

#include "foundation/platform/DiagnosticStream.h"
#include "presets/RecordReader.h"
#include "presets/ValueRepair.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <string_view>

namespace pedl {

namespace {

/// Puts fields one behind the other into bytes that are zero before and large enough.
class ByteWriter {
public:
    explicit ByteWriter(std::span<std::byte> zeros) noexcept : rest_(zeros) {}
    ~ByteWriter() { assert(rest_.empty() && "the sizes are the sums of what is written"); }
    ByteWriter(const ByteWriter&) = delete;
    ByteWriter& operator=(const ByteWriter&) = delete;

    template <typename Field> void put(Field field) { putBytes(&field, sizeof field); }
    void put(const ProgramName& name) { putBytes(name.data(), name.size()); }
    void skip(std::size_t zeros) { rest_ = rest_.subspan(zeros); }

private:
    void putBytes(const void* bytes, std::size_t count) {
        assert(count <= rest_.size() && "the sizes are the sums of what is written");
        std::memcpy(rest_.data(), bytes, count);
        rest_ = rest_.subspan(count);
    }

    std::span<std::byte> rest_;
};

void putHeader(ByteWriter& writer, const StreamHeader& header) {
    writer.put(kPluginId);
    writer.put(header.kind);
    writer.put(header.version);
    writer.put(header.parameters);
    writer.put(header.records);
    writer.put(header.currentSlot);
    writer.put(header.recordBytes);
    writer.put(header.channelMark);
    writer.skip(kLongWordBytes);
}

void putRecordHead(ByteWriter& writer, RecordType type, std::size_t payloadBytes,
                   std::uint32_t slot) {
    writer.put(type);
    writer.put(static_cast<std::uint32_t>(payloadBytes));
    writer.put(slot);
}

void putProgramHead(ByteWriter& writer, std::uint32_t slot, const ProgramName& name) {
    putRecordHead(writer, RecordType::ProgramHead, kProgramHeadPayloadBytes, slot);
    writer.put(name);
    writer.skip(kSpareWordBytes + kProgramHeadSpareBytes);
}

void putValue(ByteWriter& writer, std::uint32_t slot, std::uint32_t parameter, float value) {
    putRecordHead(writer, RecordType::Value, kValuePayloadBytes, slot);
    writer.put(parameter);
    writer.skip(2 * kSpareWordBytes);
    writer.put(value);
    writer.skip(kSpareWordBytes);
}

void putMidiLink(ByteWriter& writer, std::uint32_t parameter, float value, float channelValue) {
    putRecordHead(writer, RecordType::MidiLink, kValuePayloadBytes, 0);
    writer.put(parameter);
    writer.skip(2 * kSpareWordBytes);
    writer.put(value);
    writer.put(channelValue);
}

/// @param storedSlot  what the records name: the slot itself in a bank, 0 in a program
/// @param place       of the lines, in front of the slot
void putProgram(ByteWriter& writer, const ProgramBank& bank, std::int32_t slot,
                std::uint32_t storedSlot, std::string_view place, DiagnosticStream& diagnostics) {
    const ProgramRecord program = bank.record(slot);
    putProgramHead(writer, storedSlot, program.name);
    for (std::uint32_t parameter = 0; parameter < kParameters; ++parameter) {
        const float value = program.normalised[parameter];
        if (!isNormalised(value))
            diagnostics.line(programRepairText(static_cast<std::int32_t>(parameter), value, place,
                                               slot, nameText(program.name)));
        putValue(writer, storedSlot, parameter, repairedValue(value));
    }
}

void putBank(ByteWriter& writer, const ProgramBank& bank, std::uint32_t records,
             DiagnosticStream& diagnostics) {
    putHeader(writer, {.kind = StreamKind::Bank,
                       .records = records,
                       .currentSlot = static_cast<std::uint32_t>(bank.currentSlot()),
                       .recordBytes = kBankRecordsBytes});
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        putProgram(writer, bank, slot, static_cast<std::uint32_t>(slot), "on save of preset",
                   diagnostics);
}

} // namespace

StreamBytes writeBank(const ProgramBank& bank, DiagnosticStream& diagnostics) {
    StreamBytes stream(kBankStreamBytes);
    ByteWriter writer(stream);
    putBank(writer, bank, kBankRecords, diagnostics);
    return stream;
}

StreamBytes writeProgram(const ProgramBank& bank, std::int32_t slot,
                         DiagnosticStream& diagnostics) {
    StreamBytes stream(kProgramStreamBytes);
    ByteWriter writer(stream);
    putHeader(writer, {.kind = StreamKind::Program,
                       .records = kRecordsPerProgram,
                       .recordBytes = kProgramRecordsBytes});
    putProgram(writer, bank, slot, 0, "on save, preset:", diagnostics);
    return stream;
}

StreamBytes writeMidi(const HeldMidiLinks& links, DiagnosticStream& diagnostics) {
    StreamBytes stream(kMidiStreamBytes);
    ByteWriter writer(stream);
    putHeader(writer,
              {.kind = StreamKind::Midi, .records = kParameters, .recordBytes = kMidiRecordsBytes});
    const float channelValue = repairedToEnd(links.channelValue);
    for (std::uint32_t parameter = 0; parameter < kParameters; ++parameter) {
        const float value = links.linkValue[parameter];
        if (!isNormalised(value))
            diagnostics.line(
                plainRepairText(static_cast<std::int32_t>(parameter), value, "on save of MIDI"));
        putMidiLink(writer, parameter, repairedToEnd(value), channelValue);
    }
    return stream;
}

void writeChunk(std::span<std::byte, kChunkBytes> chunk, const ProgramBank& bank,
                const HeldMidiLinks& links, DiagnosticStream& diagnostics) {
    std::ranges::fill(chunk, std::byte{0});
    ByteWriter writer(chunk);
    writer.put(kChunkVersion);
    writer.put(kPluginId);
    // The header counts the links that follow, yet its size does not: hosts' projects have always
    // been so, and readers go by the count.
    putBank(writer, bank, kBankRecords + kParameters, diagnostics);
    const float channelValue = repairedToEnd(links.channelValue);
    for (std::uint32_t parameter = 0; parameter < kParameters; ++parameter) {
        const float value = links.linkValue[parameter];
        const bool isUsable = value >= 0.0F; // above 1 as well: a parameter without a link
        if (!isUsable)
            diagnostics.line(
                plainRepairText(static_cast<std::int32_t>(parameter), value, "on make of chunk"));
        putMidiLink(writer, parameter, isUsable ? value : 1.0F, channelValue);
    }
}

} // namespace pedl
