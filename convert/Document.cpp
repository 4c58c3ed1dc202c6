#include "convert/Document.h"

#include "foundation/text/NameMatch.h"
#include "foundation/text/PrintableText.h"
#include "parameters/ListPosition.h"
#include "presets/FactoryPrograms.h"
#include "presets/FileKinds.h"
#include "presets/ProgramBank.h"

#include <algorithm>

namespace pedl {

namespace {

constexpr std::int32_t kLinkPositions = kNumControllers + 1; // the last one is none

struct Words {
    std::string_view name, key, extension;
};

/// A chunk is the host's to keep: the plug-in has no file of this kind, the others it has.
constexpr Words kChunkWords{"host chunk", "chunk", "chunk"};

Words wordsOf(DocumentKind kind) noexcept {
    static_assert(static_cast<int>(DocumentKind::Program) == static_cast<int>(FileKind::Program) &&
                  static_cast<int>(DocumentKind::Bank) == static_cast<int>(FileKind::Bank) &&
                  static_cast<int>(DocumentKind::MidiSettings) ==
                      static_cast<int>(FileKind::MidiSettings));
    if (kind == DocumentKind::Chunk)
        return kChunkWords;
    const FileType& type = fileType(static_cast<FileKind>(kind));
    return {type.name, type.key, type.extension};
}

} // namespace

const ProgramRecord& currentProgram(const Document& document) {
    return document.programs[static_cast<std::size_t>(document.currentSlot)];
}

std::string_view kindName(DocumentKind kind) noexcept {
    return wordsOf(kind).name;
}

std::string_view kindKey(DocumentKind kind) noexcept {
    return wordsOf(kind).key;
}

std::string kindEnding(DocumentKind kind) {
    return '.' + std::string(wordsOf(kind).extension);
}

std::string contentsName(DocumentKind kind) {
    return (kind == DocumentKind::MidiSettings ? "" : "a ") + std::string(kindName(kind));
}

float linkValueOf(std::int32_t controller) noexcept {
    return listValue(controller, kLinkPositions);
}

std::int32_t DocumentLinks::controllerOf(std::int32_t parameter) const noexcept {
    const std::optional<float>& value = linkValue[static_cast<std::size_t>(parameter)];
    const std::int32_t position = value ? listPosition(*value, kLinkPositions) : kNumControllers;
    return isController(position) ? position : MidiMap::kNone;
}

Document factoryDocument() {
    Document document;
    document.programs.reserve(kNumPrograms);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        document.programs.push_back(factoryProgram(slot));
    return document;
}

Document merged(Document base, const Document& document) {
    if (hasBank(document.kind)) {
        base.programs = document.programs;
        base.currentSlot = document.currentSlot;
    } else if (document.kind == DocumentKind::Program) {
        base.programs[static_cast<std::size_t>(base.currentSlot)] = currentProgram(document);
    }
    if (hasLinks(document.kind))
        base.links = document.links;
    return base;
}

Result<Document> converted(const Document& document, DocumentKind kind) {
    if (kind == document.kind)
        return document;
    if (document.kind == DocumentKind::MidiSettings && kind != DocumentKind::Chunk)
        return Problem{"holds MIDI settings: there is no program in it"};
    if (kind == DocumentKind::MidiSettings && !hasLinks(document.kind))
        return Problem{"holds " + contentsName(document.kind) + ": there are no MIDI links in it"};
    Document result = merged(factoryDocument(), document);
    result.kind = kind;
    result.warnings = document.warnings;
    if (kind == DocumentKind::Program) {
        result.programs = {currentProgram(document)};
        result.currentSlot = 0;
    } else if (kind == DocumentKind::MidiSettings) {
        result.programs.clear();
        result.currentSlot = 0;
    }
    if (!hasLinks(kind) && !document.links.isPristine()) {
        result.links = {};
        result.warnings.push_back("the MIDI links and the channel are left out: a " +
                                  std::string(kindName(kind)) + " has none");
    }
    return result;
}

Done selectProgram(Document& document, std::string_view nameOrSlot) {
    if (!hasBank(document.kind))
        return Problem{"holds " + contentsName(document.kind) +
                       ": only banks and host chunks have several programs"};
    std::vector<std::string> names;
    names.reserve(document.programs.size());
    for (const ProgramRecord& program : document.programs)
        names.push_back(printableText(nameText(program.name)));
    const Result<FoundName> found = findNumbered(nameOrSlot, names, "program", "the bank");
    if (!found.ok())
        return found.problem();
    document.currentSlot = found.value().index;
    if (!found.value().note.empty())
        document.warnings.push_back(found.value().note);
    return done();
}

} // namespace pedl
