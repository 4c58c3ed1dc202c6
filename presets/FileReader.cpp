#include "presets/FileReader.h"

#include "presets/ByteReader.h"
#include "presets/RawReader.h"
#include "presets/RecordReader.h"
#include "presets/StreamFormat.h"

#include <optional>

namespace pedl {

namespace {

/// What the first five bytes say.
struct FileStart {
    LoadResult result = LoadResult::Loaded;
    StreamKind kind = StreamKind::Bank; // any byte, also one that the enumeration has no name for
    ByteOrder order = ByteOrder::Native;
};

/// The identifier tells ours from foreign data before the decision turns the order around: a file
/// that was written here passes, and is then read reversed.
FileStart startOf(std::span<const std::byte> file, OrderDecision decision) {
    ByteReader reader(file);
    const std::optional<std::uint32_t> id = reader.takeWord();
    const std::optional<std::uint8_t> kind = reader.takeByte();
    if (!id || !kind)
        return {LoadResult::TooShort};
    const std::optional<ByteOrder> order = byteOrderOf(*id);
    if (!order)
        return {LoadResult::Foreign};
    return {LoadResult::Loaded, static_cast<StreamKind>(*kind),
            decision == OrderDecision::Inverted ? inverted(*order) : *order};
}

BankFromFile loadedUnlessEmpty(const LoadedBank& bank) {
    return {bank.named.any() ? LoadResult::Loaded : LoadResult::TooShort, bank};
}

} // namespace

BankFromFile readBankFile(std::span<const std::byte> file, OrderDecision decision,
                          ProgramBank& bank, DiagnosticStream& diagnostics) {
    const FileStart start = startOf(file, decision);
    if (start.result != LoadResult::Loaded)
        return {start.result, {}};
    if (start.kind == StreamKind::RawBank)
        return loadedUnlessEmpty(readRawBank(file, start.order, bank, diagnostics));
    if (start.kind != StreamKind::Bank)
        return {LoadResult::UnknownKind, {}};
    const std::optional<StreamView> stream = openSizedStream(file, start.order);
    if (!stream)
        return {LoadResult::TooShort, {}};
    return {LoadResult::Loaded, readBank(*stream, bank, diagnostics)};
}

ProgramFromFile readProgramFile(std::span<const std::byte> file, OrderDecision decision,
                                ProgramBank& bank, std::int32_t slot,
                                DiagnosticStream& diagnostics) {
    const FileStart start = startOf(file, decision);
    if (start.result != LoadResult::Loaded)
        return {start.result};
    if (start.kind == StreamKind::RawProgram) {
        const bool isNamed = readRawProgram(file, start.order, bank, slot, diagnostics);
        return {isNamed ? LoadResult::Loaded : LoadResult::TooShort, isNamed};
    }
    if (start.kind != StreamKind::Program)
        return {LoadResult::UnknownKind};
    const std::optional<StreamView> stream = openSizedStream(file, start.order);
    if (!stream)
        return {LoadResult::TooShort};
    return {LoadResult::Loaded, readProgram(*stream, bank, slot, diagnostics)};
}

MidiFromFile readMidiFile(std::span<const std::byte> file, OrderDecision decision,
                          DiagnosticStream& diagnostics) {
    const FileStart start = startOf(file, decision);
    if (start.result != LoadResult::Loaded)
        return {start.result, {}};
    if (start.kind == StreamKind::RawMidi) {
        MidiLinks links = readRawMidi(file, start.order);
        links.channelValue = kAllChannelsValue;
        return {LoadResult::Loaded, links, false};
    }
    const std::optional<StreamView> stream = openSizedStream(file, start.order);
    if (!stream)
        return {LoadResult::TooShort, {}};
    // The mark alone decides, whatever the kind: settings were once saved under other kinds.
    const bool isMarked = stream->header.channelMark == kHasMidiChannel;
    if (start.kind != StreamKind::MidiWithoutChannel && !isMarked)
        return {LoadResult::UnknownKind, {}};
    MidiLinks links = readMidiLinks(*stream, diagnostics);
    if (start.kind == StreamKind::MidiWithoutChannel)
        links.channelValue = kAllChannelsValue;
    return {LoadResult::Loaded, links};
}

} // namespace pedl
