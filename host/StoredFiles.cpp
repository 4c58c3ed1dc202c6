#include "host/StoredFiles.h"

#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"

namespace pedl {

namespace {

bool holds(DocumentKind kind, StoredPart part) {
    switch (part) {
    case StoredPart::Bank:
        return hasBank(kind);
    case StoredPart::Program:
        return kind == DocumentKind::Program;
    case StoredPart::MidiSettings:
        return kind == DocumentKind::MidiSettings;
    }
    return false;
}

/// The option of `render` that takes what the document holds.
const char* optionFor(DocumentKind kind) {
    if (hasBank(kind))
        return "--bank";
    return kind == DocumentKind::Program ? "--preset" : "--midi-settings";
}

} // namespace

Result<std::vector<std::string>> loadStoredFile(Plugin& plugin, StoredPart part,
                                                const std::filesystem::path& path) {
    if (!plugin.isOurs())
        return Problem{"only ZMTpedlFilter.so has such files"};
    const Result<Document> document = readDocument(path.string());
    if (!document.ok())
        return document.problem();
    const DocumentKind kind = document.value().kind;
    if (!holds(kind, part))
        return Problem{path.string() + ": holds " + contentsName(kind) + "; give it to " +
                       optionFor(kind)};
    if (!plugin.setChunk(chunkWith(document.value(), plugin.chunk())))
        return Problem{path.string() + ": the plug-in refused it"};

    std::vector<std::string> warnings;
    for (const std::string& warning : document.value().warnings)
        warnings.push_back(path.string() + ": " + warning);
    return warnings;
}

} // namespace pedl
