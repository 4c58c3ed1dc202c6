#pragma once

#include "parameters/ParameterIndex.h"
#include "presets/ProgramBank.h"
#include "presets/ProgramRecord.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace pedl {

// Sizes and marks of everything that is stored: host chunks, files, user defaults and memories.
// docs/stored-formats.md draws them. Fields are packed; every number is little-endian.

static_assert(std::endian::native == std::endian::little, "streams are read as the memory is");

/// "ZMpF", the first character in the most significant byte: what hosts know the plug-in by, and
/// what every stored stream begins with.
constexpr std::uint32_t kPluginId = 0x5A4D7046;

constexpr std::size_t kWordBytes = 4;

constexpr std::uint32_t kParameters = kNumParams;
constexpr std::uint32_t kPrograms = kNumPrograms;

// Stream header

constexpr std::size_t kIdBytes = kWordBytes;
constexpr std::size_t kKindBytes = 1;
constexpr std::size_t kStreamStartBytes = kIdBytes + kKindBytes; ///< all that old layouts have

/// Version, parameters, records, current slot, size of the records, channel mark, spare field.
constexpr std::size_t kLongWordBytes = 2 * kWordBytes;
constexpr std::size_t kHeaderFieldBytes = 5 * kWordBytes + 2 * kLongWordBytes;
constexpr std::size_t kHeaderBytes = kStreamStartBytes + kHeaderFieldBytes;
static_assert(kHeaderBytes == 41);

constexpr std::uint32_t kStreamVersion = 0x01000000;

/// Header field of a stream that carries the MIDI channel; 0 in one that does not.
constexpr std::uint64_t kHasMidiChannel = 13;

/// The fifth byte of a stream or file.
enum class StreamKind : std::uint8_t {
    RawMidi = 11,
    MidiWithoutChannel = 12,
    Midi = 13,
    RawProgram = 33,
    Program = 34,
    RawBank = 55,
    Bank = 56,
};

// Records

enum class RecordType : std::uint32_t { ProgramHead = 0, Value = 1, MidiLink = 2 };

constexpr std::size_t kRecordHeadBytes = 3 * kWordBytes; // type, payload size, slot

constexpr std::size_t kSpareWordBytes = kWordBytes;
constexpr std::size_t kProgramHeadSpareBytes = 128;
constexpr std::size_t kProgramHeadPayloadBytes =
    kProgramNameBytes + kSpareWordBytes + kProgramHeadSpareBytes;

// Values and MIDI links: parameter, two spare words, value, then a spare word or the channel.
constexpr std::size_t kPayloadParameterOffset = 0;
constexpr std::size_t kPayloadValueOffset = 3 * kWordBytes;
constexpr std::size_t kPayloadChannelOffset = 4 * kWordBytes;
constexpr std::size_t kValuePayloadBytes = 5 * kWordBytes;

constexpr std::size_t kProgramHeadRecordBytes = kRecordHeadBytes + kProgramHeadPayloadBytes;
constexpr std::size_t kValueRecordBytes = kRecordHeadBytes + kValuePayloadBytes;
static_assert(kProgramHeadRecordBytes == 168 && kValueRecordBytes == 32);

// Streams

constexpr std::uint32_t kRecordsPerProgram = 1 + kParameters;
constexpr std::uint32_t kBankRecords = kPrograms * kRecordsPerProgram;
constexpr std::size_t kProgramRecordsBytes =
    kProgramHeadRecordBytes + kParameters * kValueRecordBytes;
constexpr std::size_t kBankRecordsBytes = kPrograms * kProgramRecordsBytes;
constexpr std::size_t kMidiRecordsBytes = kParameters * kValueRecordBytes;

constexpr std::size_t kProgramStreamBytes = kHeaderBytes + kProgramRecordsBytes;
constexpr std::size_t kBankStreamBytes = kHeaderBytes + kBankRecordsBytes;
constexpr std::size_t kMidiStreamBytes = kHeaderBytes + kMidiRecordsBytes;
static_assert(kProgramStreamBytes == 2001 && kBankStreamBytes == 274441 &&
              kMidiStreamBytes == 1833);

// Host chunks

constexpr std::uint32_t kRawChunkVersion = 0x01000000; ///< raw programs; read only
constexpr std::uint32_t kChunkVersion = 0x02000000;    ///< a stream
constexpr std::size_t kChunkHeadBytes = kWordBytes + kIdBytes;
constexpr std::size_t kChunkBytes = kChunkHeadBytes + kBankStreamBytes + kMidiRecordsBytes;
static_assert(kChunkBytes == 276241);

/// Version, identifier, programs, current program, four words without meaning.
constexpr std::size_t kRawChunkHeadBytes = kChunkHeadBytes + 6 * kWordBytes;
constexpr std::size_t kRawChunkMidiBytes = kParameters * sizeof(float);
static_assert(kRawChunkHeadBytes == 32 && kRawChunkMidiBytes == 224);

} // namespace pedl
