#include "presets/RecordReader.h"

#include <algorithm>

namespace pedl {

namespace {

constexpr std::size_t kRecordTypeOffset = 0;
constexpr std::size_t kRecordSizeOffset = kWordBytes;
constexpr std::size_t kRecordSlotOffset = 2 * kWordBytes;

/// Both words of the channel mark are reversed each for itself, so it is not a reversed long word.
std::uint64_t channelMarkAt(std::span<const std::byte> fields, std::size_t offset,
                            ByteOrder order) {
    const std::uint64_t high = wordAt(fields, offset + kWordBytes, order);
    return high << 32U | wordAt(fields, offset, order);
}

StreamHeader decodeHeader(std::uint8_t kind, std::span<const std::byte> fields, ByteOrder order) {
    const auto word = [&](std::size_t index) { return wordAt(fields, index * kWordBytes, order); };
    return {.kind = static_cast<StreamKind>(kind),
            .version = word(0),
            .parameters = word(1),
            .records = word(2),
            .currentSlot = word(3),
            .recordBytes = word(4),
            .channelMark = channelMarkAt(fields, 5 * kWordBytes, order)};
}

} // namespace

std::optional<StreamView> openStream(std::span<const std::byte> bytes, ByteOrder order) noexcept {
    ByteReader reader(bytes);
    if (bytes.size() < kHeaderBytes || !reader.take(kIdBytes))
        return std::nullopt;
    const auto kind = reader.takeByte();
    const auto fields = reader.take(kHeaderFieldBytes);
    if (!kind || !fields)
        return std::nullopt;
    return StreamView{decodeHeader(*kind, *fields, order), order, reader.rest()};
}

std::optional<StreamView> openSizedStream(std::span<const std::byte> bytes,
                                          ByteOrder order) noexcept {
    std::optional<StreamView> stream = openStream(bytes, order);
    if (stream) // the size is the file's claim, not a fact
        stream->records = stream->records.first(
            std::min<std::size_t>(stream->header.recordBytes, stream->records.size()));
    return stream;
}

std::optional<ChunkView> openChunk(std::span<const std::byte> bytes) noexcept {
    if (bytes.size() < kChunkHeadBytes)
        return std::nullopt;
    const std::optional<ByteOrder> order =
        byteOrderOf(wordAt(bytes, kWordBytes, ByteOrder::Native));
    if (!order)
        return std::nullopt;
    const std::uint32_t version = wordAt(bytes, 0, *order);
    if (version != kChunkVersion && version != kRawChunkVersion)
        return std::nullopt;
    return ChunkView{version, *order, bytes};
}

std::optional<RecordView> RecordReader::next() noexcept {
    if (remaining_ == 0)
        return std::nullopt;
    --remaining_;
    const auto head = reader_.take(kRecordHeadBytes);
    const auto payload =
        head ? reader_.take(wordAt(*head, kRecordSizeOffset, order_)) : std::nullopt;
    if (!payload) { // a writer that died, or a size that is not true: nothing behind it is sure
        remaining_ = 0;
        return std::nullopt;
    }
    return RecordView{wordAt(*head, kRecordTypeOffset, order_),
                      wordAt(*head, kRecordSlotOffset, order_), *payload, order_};
}

} // namespace pedl
