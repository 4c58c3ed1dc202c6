#include "convert/DocumentWriter.h"

#include "convert/DocumentReader.h"
#include "foundation/platform/NoDiagnostics.h"
#include "parameters/ListPosition.h"
#include "presets/MidiNames.h"
#include "presets/ProgramBank.h"
#include "presets/StreamWriter.h"

#include <span>
#include <utility>

namespace pedl {

namespace {

/// @param none  the value of a parameter without a link
HeldMidiLinks heldLinks(const DocumentLinks& links, float none) {
    HeldMidiLinks held;
    held.channelValue = listValue(links.channel, kNumChannelTexts);
    for (std::size_t parameter = 0; parameter < held.linkValue.size(); ++parameter)
        held.linkValue[parameter] = links.linkValue[parameter].value_or(none);
    return held;
}

void fill(ProgramBank& bank, const Document& document) {
    std::int32_t slot = 0;
    for (const ProgramRecord& program : document.programs)
        bank.setRecord(slot++, program);
    bank.setCurrentSlot(document.currentSlot);
}

} // namespace

std::vector<std::byte> storedForm(const Document& document) {
    NoDiagnostics silent; // a document's values are in range: there is nothing to report
    ProgramBank bank;
    fill(bank, document);
    switch (document.kind) {
    case DocumentKind::Program:
        return writeProgram(bank, 0, silent);
    case DocumentKind::Bank:
        return writeBank(bank, silent);
    case DocumentKind::MidiSettings:
        return writeMidi(heldLinks(document.links, 1.0F), silent);
    case DocumentKind::Chunk:
        break;
    }
    std::vector<std::byte> chunk(kChunkBytes);
    writeChunk(std::span<std::byte, kChunkBytes>(chunk), bank,
               heldLinks(document.links, linkValueOf(MidiMap::kNone)), silent);
    return chunk;
}

std::vector<std::byte> chunkWith(const Document& document,
                                 std::span<const std::byte> presentChunk) {
    Result<Document> present = documentOf(presentChunk);
    const bool isUsable = present.ok() && present.value().kind == DocumentKind::Chunk;
    return storedForm(merged(isUsable ? std::move(present.value()) : factoryDocument(), document));
}

} // namespace pedl
