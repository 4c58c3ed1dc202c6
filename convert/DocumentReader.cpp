#include "convert/DocumentReader.h"

#include "convert/TextForm.h"
#include "foundation/platform/DiagnosticStream.h"
#include "foundation/platform/FileReading.h"
#include "foundation/platform/StandardStream.h"
#include "foundation/text/PrintableText.h"
#include "parameters/ListPosition.h"
#include "presets/FactoryPrograms.h"
#include "presets/FileKinds.h"
#include "presets/FileReader.h"
#include "presets/MidiNames.h"
#include "presets/RawReader.h"
#include "presets/RecordReader.h"
#include "presets/StreamReader.h"

#include <cmath>

namespace pedl {

namespace {

constexpr ReadLimit kLimit{kMaxTextBytes, "larger than 16 MiB"};

/// Keeps the readers' lines with the document.
class WarningList final : public DiagnosticStream {
public:
    explicit WarningList(Document& document) : warnings_(document.warnings) {}
    void line(std::string_view text) override { warnings_.push_back(printableText(text)); }

private:
    std::vector<std::string>& warnings_;
};

Document emptyDocument(DocumentKind kind) {
    Document document;
    document.kind = kind;
    return document;
}

/// Our own checks speak for themselves; of the system's answer the call is no help to the user.
std::string problemText(const FileContents& contents) {
    const FileProblem& problem = contents.problem;
    return problem.number != 0 ? systemText(problem.number) : "is " + problem.text();
}

/// A bank for readers to write into: what they do not find is the factory's.
class FactoryBank : public ProgramBank {
public:
    FactoryBank() {
        writeFactoryPrograms(*this);
        takeEditSnapshot(0);
    }
};

/// A stream that ends within its records is read as far as it goes; the user should know.
void warnIfCut(const std::optional<StreamView>& stream, Document& document) {
    if (!stream)
        return;
    std::uint32_t whole = 0;
    RecordReader records(*stream);
    while (records.next())
        ++whole;
    if (whole < stream->header.records)
        document.warnings.push_back("ends after " + std::to_string(whole) + " of " +
                                    std::to_string(stream->header.records) +
                                    " records; those were read");
}

Result<Document> withBank(Document document, const ProgramBank& bank, const LoadedBank& loaded) {
    if (loaded.named.none())
        return Problem{"ends before the first of its programs"};
    if (!loaded.named.all())
        document.warnings.push_back("has " + std::to_string(loaded.named.count()) + " of " +
                                    std::to_string(kNumPrograms) +
                                    " programs; the others are the factory's");
    document.currentSlot = loaded.currentSlot;
    document.programs.reserve(kNumPrograms);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        document.programs.push_back(bank.record(slot));
    return document;
}

Result<Document> fromProgramFile(std::span<const std::byte> file) {
    Document document = emptyDocument(DocumentKind::Program);
    WarningList diagnostics(document);
    FactoryBank bank;
    const ProgramFromFile read =
        readProgramFile(file, OrderDecision::AsFound, bank, 0, diagnostics);
    if (read.result != LoadResult::Loaded || !read.isNamed)
        return Problem{"ends before its program"};
    document.programs = {bank.record(0)};
    return document;
}

Result<Document> fromBankFile(std::span<const std::byte> file) {
    Document document = emptyDocument(DocumentKind::Bank);
    WarningList diagnostics(document);
    FactoryBank bank;
    const BankFromFile read = readBankFile(file, OrderDecision::AsFound, bank, diagnostics);
    return withBank(std::move(document), bank, read.bank);
}

/// The links that were stored; values from 1 on stand for none.
DocumentLinks documentLinks(const MidiLinks& links) {
    DocumentLinks result;
    for (std::size_t parameter = 0; parameter < links.linkValue.size(); ++parameter)
        if (const auto& value = links.linkValue[parameter]; value && *value < 1.0F)
            result.linkValue[parameter] = value;
    if (links.channelValue)
        result.channel = listPosition(*links.channelValue, kNumChannelTexts);
    return result;
}

Result<Document> fromMidiFile(std::span<const std::byte> file, std::uint8_t kind) {
    Document document = emptyDocument(DocumentKind::MidiSettings);
    WarningList diagnostics(document);
    const MidiFromFile read = readMidiFile(file, OrderDecision::AsFound, diagnostics);
    if (read.result == LoadResult::UnknownKind)
        return Problem{"is a file of the plug-in, but of kind " + std::to_string(kind) +
                       ", which is neither program, bank nor MIDI settings"};
    if (read.result != LoadResult::Loaded)
        return Problem{"ends within its first 41 bytes"};
    document.links = documentLinks(read.links);
    return document;
}

/// Hosts can set a link to 1, which makes none. The plug-in stores it all the same, so that it is
/// kept here; what it stores for a link that was never there needs no keeping.
void keepValuesOfNoLink(const StreamView& stream, DocumentLinks& links) {
    const float ordinary = linkValueOf(MidiMap::kNone);
    RecordReader records(stream);
    while (const auto record = records.next()) {
        if (!record->is(RecordType::MidiLink, kPayloadChannelOffset + sizeof(float)))
            continue;
        const std::uint32_t parameter = record->word(kPayloadParameterOffset);
        const float value = record->number(kPayloadValueOffset);
        if (parameter < kParameters && value >= 1.0F && std::isfinite(value) && value != ordinary)
            links.linkValue[parameter] = value;
    }
}

Result<Document> fromStreamChunk(const ChunkView& chunk) {
    Document document = emptyDocument(DocumentKind::Chunk);
    WarningList diagnostics(document);
    const auto stream = openStream(chunk.bytes.subspan(kChunkHeadBytes), chunk.order);
    if (!stream)
        return Problem{"is a host chunk that ends within its header"};
    document.links = documentLinks(readMidiLinks(*stream, diagnostics));
    keepValuesOfNoLink(*stream, document.links);
    FactoryBank bank;
    const LoadedBank loaded = readBank(*stream, bank, diagnostics);
    warnIfCut(stream, document);
    return withBank(std::move(document), bank, loaded);
}

Result<Document> fromRawChunk(const ChunkView& chunk) {
    Document document = emptyDocument(DocumentKind::Chunk);
    WarningList diagnostics(document);
    const auto raw = openRawChunk(chunk.bytes, chunk.order);
    if (!raw || raw->programs == 0)
        return Problem{"is an old host chunk without programs"};
    FactoryBank bank;
    const LoadedBank loaded = readRawPrograms(*raw, bank, diagnostics);
    document.links = documentLinks(readRawLinks(*raw, diagnostics));
    // The plug-in takes only the controller from it, and writes that controller's value.
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const std::int32_t controller = document.links.controllerOf(parameter);
        document.links.linkValue[static_cast<std::size_t>(parameter)] =
            isController(controller) ? std::optional(linkValueOf(controller)) : std::nullopt;
    }
    return withBank(std::move(document), bank, loaded);
}

Result<Document> fromFile(std::span<const std::byte> file, ByteOrder order) {
    if (file.size() < kStreamStartBytes)
        return Problem{"ends before it says what it is"};
    const auto mark = std::to_integer<std::uint8_t>(file[kIdBytes]);
    const FileType* const type = fileTypeOf(static_cast<StreamKind>(mark));
    Result<Document> result = [&] {
        switch (type != nullptr ? type->kind : FileKind::MidiSettings) { // these under any mark
        case FileKind::Program:
            return fromProgramFile(file);
        case FileKind::Bank:
            return fromBankFile(file);
        case FileKind::MidiSettings:
            break;
        }
        return fromMidiFile(file, mark);
    }();
    const bool isRaw = type != nullptr && mark == static_cast<std::uint8_t>(type->rawStream);
    if (result.ok() && !isRaw)
        warnIfCut(openSizedStream(file, order), result.value());
    return result;
}

} // namespace

Result<Document> documentOf(std::span<const std::byte> contents) {
    if (contents.empty())
        return Problem{"is empty"};
    const std::string_view text(reinterpret_cast<const char*>(contents.data()), contents.size());
    if (looksLikeText(text))
        return text.size() <= kMaxTextBytes ? documentFromText(text)
                                            : Problem{std::string("is ") + kLimit.refusal};
    if (contents.size() > kMaxFileBytes)
        return Problem{"is larger than 1 MiB and no text form"};
    if (const auto chunk = openChunk(contents))
        return chunk->version == kRawChunkVersion ? fromRawChunk(*chunk) : fromStreamChunk(*chunk);
    if (const auto id = ByteReader(contents).takeWord())
        if (const auto order = byteOrderOf(*id))
            return fromFile(contents, *order);
    return Problem{"is no program, bank, MIDI settings or host chunk of the plug-in, and no text "
                   "form of one"};
}

Result<Document> readDocument(const std::string& path) {
    const bool isStandard = path == kStandardStream;
    const std::string name = isStandard ? kStandardInput : path;
    const FileContents contents = isStandard ? readStandardInput(kLimit) : readFile(path, kLimit);
    if (contents.result != ReadResult::Read)
        return Problem{name + ": " + problemText(contents)};
    Result<Document> document = documentOf(contents.bytes);
    if (!document.ok())
        return document.problem().of(name);
    return document;
}

} // namespace pedl
