#include "presets/RawReader.h"

#include "foundation/platform/DiagnosticStream.h"
#include "presets/SlotLoader.h"
#include "presets/ValueRepair.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

/// How programs lie one behind the other.
struct RawLayout {
    std::size_t values = 0;      ///< of each program, those that there is a parameter for
    std::size_t strideBytes = 0; ///< from one program to the next
};

/// The layout of equal programs that fill `bytes`. Nothing where not even their names fit.
std::optional<RawLayout> layoutOf(std::size_t bytes, std::size_t programs) {
    const std::size_t share = bytes / programs;
    if (share < kProgramNameBytes)
        return std::nullopt;
    const std::size_t values = (share - kProgramNameBytes) / sizeof(float);
    return RawLayout{std::min<std::size_t>(values, kParameters),
                     kProgramNameBytes + values * sizeof(float)};
}

void loadProgram(std::span<const std::byte> program, std::size_t values, ByteOrder order,
                 std::int32_t slot, SlotLoader& loader) {
    loader.begin(slot, program.first<kProgramNameBytes>());
    for (std::size_t parameter = 0; parameter < values; ++parameter)
        loader.setValue(slot, static_cast<std::uint32_t>(parameter),
                        floatAt(program, kProgramNameBytes + parameter * sizeof(float), order));
}

/// Programs into the slots from 0 on; those behind the last slot are left out.
std::bitset<kNumPrograms> loadPrograms(std::span<const std::byte> bytes, std::size_t programs,
                                       ByteOrder order, SlotLoader loader) {
    std::bitset<kNumPrograms> named;
    const std::optional<RawLayout> layout = layoutOf(bytes.size(), programs);
    if (!layout)
        return named;
    ByteReader reader(bytes);
    for (std::size_t slot = 0; slot < std::min<std::size_t>(programs, kPrograms); ++slot) {
        const auto program = reader.take(layout->strideBytes);
        if (!program)
            break;
        loadProgram(*program, layout->values, order, static_cast<std::int32_t>(slot), loader);
        named.set(slot);
    }
    return named;
}

/// What lies behind identifier and kind.
std::span<const std::byte> contents(std::span<const std::byte> file) {
    return file.subspan(std::min(kStreamStartBytes, file.size()));
}

} // namespace

std::optional<RawChunkView> openRawChunk(std::span<const std::byte> chunk,
                                         ByteOrder order) noexcept {
    if (chunk.size() < kRawChunkHeadBytes)
        return std::nullopt;
    const auto body = chunk.subspan(kRawChunkHeadBytes);
    const bool hasLinks = body.size() >= kRawChunkMidiBytes;
    return RawChunkView{.programs = wordAt(chunk, kChunkHeadBytes, order),
                        .currentSlot = wordAt(chunk, kChunkHeadBytes + kWordBytes, order),
                        .programBytes =
                            hasLinks ? body.first(body.size() - kRawChunkMidiBytes) : body.first(0),
                        .linkBytes = hasLinks ? body.last(kRawChunkMidiBytes) : body.first(0),
                        .order = order};
}

LoadedBank readRawPrograms(const RawChunkView& chunk, ProgramBank& bank,
                           DiagnosticStream& diagnostics) {
    LoadedBank loaded;
    if (chunk.currentSlot < kPrograms)
        loaded.currentSlot = static_cast<std::int32_t>(chunk.currentSlot);
    if (chunk.programs > 0)
        loaded.named = loadPrograms(chunk.programBytes, chunk.programs, chunk.order,
                                    SlotLoader(bank, diagnostics, RepairPlace::RawChunk));
    return loaded;
}

MidiLinks readRawLinks(const RawChunkView& chunk, DiagnosticStream& diagnostics) {
    MidiLinks links;
    ByteReader reader(chunk.linkBytes, chunk.order);
    for (std::size_t parameter = 0; parameter < links.linkValue.size(); ++parameter) {
        const std::optional<float> value = reader.takeFloat();
        if (!value)
            break;
        if (std::isnan(*value) || *value < 0.0F)
            diagnostics.line(plainRepairText(static_cast<std::int32_t>(parameter), *value,
                                             "on set of MIDI old chunk"));
        else
            links.linkValue[parameter] = value;
    }
    return links;
}

LoadedBank readRawBank(std::span<const std::byte> file, ByteOrder order, ProgramBank& bank,
                       DiagnosticStream& diagnostics) {
    return {.named = loadPrograms(contents(file), kPrograms, order,
                                  SlotLoader(bank, diagnostics, RepairPlace::Bank))};
}

bool readRawProgram(std::span<const std::byte> file, ByteOrder order, ProgramBank& bank,
                    std::int32_t slot, DiagnosticStream& diagnostics) {
    const auto program = contents(file);
    const std::optional<RawLayout> layout = layoutOf(program.size(), 1);
    if (!layout)
        return false;
    SlotLoader loader(bank, diagnostics, RepairPlace::Program);
    loadProgram(program, layout->values, order, slot, loader);
    return true;
}

MidiLinks readRawMidi(std::span<const std::byte> file, ByteOrder order) {
    MidiLinks links;
    ByteReader reader(contents(file), order);
    for (std::optional<float>& link : links.linkValue) {
        const std::optional<float> value = reader.takeFloat();
        if (!value)
            break;
        link = repairedToEnd(*value);
    }
    return links;
}

} // namespace pedl
