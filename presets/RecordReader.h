#pragma once

#include "presets/ByteReader.h"
#include "presets/StreamFormat.h"

#include <cstdint>
#include <optional>
#include <span>

namespace pedl {

/// The 41 bytes in front of a stream's records, without the identifier.
struct StreamHeader {
    StreamKind kind = StreamKind::Bank;
    std::uint32_t version = kStreamVersion;
    std::uint32_t parameters = kParameters;
    std::uint32_t records = 0;
    std::uint32_t currentSlot = 0;
    std::uint32_t recordBytes = 0;
    std::uint64_t channelMark = kHasMidiChannel;

    friend bool operator==(const StreamHeader&, const StreamHeader&) = default;
};

/// A stored stream, opened: its header, and the bytes behind it that are to be read as records.
struct StreamView {
    StreamHeader header;
    ByteOrder order = ByteOrder::Native;
    std::span<const std::byte> records;
};

/// Opens a stream. Nothing where the bytes end within the header.
///
/// @param bytes  from the identifier on; neither it nor the kind is looked at
/// @param order  of every word behind the kind, and of the records
///
/// All bytes behind the header are the records: a host's chunk holds more of them than its header
/// says.
[[nodiscard]] std::optional<StreamView> openStream(std::span<const std::byte> bytes,
                                                   ByteOrder order) noexcept;

/// The same for a file or a stored default, where records end at the size that the header states
/// or where the bytes end, whichever comes first.
[[nodiscard]] std::optional<StreamView> openSizedStream(std::span<const std::byte> bytes,
                                                        ByteOrder order) noexcept;

/// A host's chunk that is ours, by its first eight bytes.
struct ChunkView {
    std::uint32_t version = kChunkVersion; ///< this or `kRawChunkVersion`
    ByteOrder order = ByteOrder::Native;
    std::span<const std::byte> bytes; ///< the whole chunk
};

/// Opens a chunk. Nothing for one of another plug-in, of an unknown version, or too short for both.
[[nodiscard]] std::optional<ChunkView> openChunk(std::span<const std::byte> bytes) noexcept;

/// One record: its head, decoded, and its payload as it lies there.
struct RecordView {
    std::uint32_t type = 0; // not the enumeration: unknown types are stepped over
    std::uint32_t slot = 0;
    std::span<const std::byte> payload;
    ByteOrder order = ByteOrder::Native;

    /// Whether this is a record of `wanted` whose payload holds `bytes` or more.
    [[nodiscard]] bool is(RecordType wanted, std::size_t bytes) const noexcept {
        return type == static_cast<std::uint32_t>(wanted) && payload.size() >= bytes;
    }
    [[nodiscard]] std::uint32_t word(std::size_t offset) const noexcept {
        return wordAt(payload, offset, order);
    }
    [[nodiscard]] float number(std::size_t offset) const noexcept {
        return floatAt(payload, offset, order);
    }
};

/// Walks the records of a stream in order.
///
/// Ends after the stated number of records or where the bytes end. A record whose stated size goes
/// beyond them is not whole and ends the walk too. Thread: any.
class RecordReader {
public:
    explicit RecordReader(const StreamView& stream) noexcept
        : reader_(stream.records, stream.order), order_(stream.order),
          remaining_(stream.header.records) {}

    [[nodiscard]] std::optional<RecordView> next() noexcept;

private:
    ByteReader reader_;
    ByteOrder order_;
    std::uint32_t remaining_;
};

} // namespace pedl
