#include "host/StoredFiles.h"

#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"

namespace pedl {

const char* storedFileOption(DocumentKind kind) noexcept {
    if (hasBank(kind))
        return "--bank";
    return kind == DocumentKind::Program ? "--preset" : "--midi-settings";
}

Result<std::vector<std::string>> loadStoredFile(Plugin& plugin, DocumentKind kind,
                                                const std::filesystem::path& path) {
    if (!plugin.isOurs())
        return Problem{"only ZMTpedlFilter.so has such files"};
    const Result<Document> document = readDocument(path.string());
    if (!document.ok())
        return document.problem();
    const DocumentKind found = document.value().kind;
    if (found != kind && !(hasBank(found) && hasBank(kind)))
        return Problem{path.string() + ": holds " + contentsName(found) + "; give it to " +
                       storedFileOption(found)};
    if (!plugin.setChunk(chunkWith(document.value(), plugin.chunk())))
        return Problem{path.string() + ": the plug-in refused it"};

    std::vector<std::string> warnings;
    for (const std::string& warning : document.value().warnings)
        warnings.push_back(path.string() + ": " + warning);
    return warnings;
}

} // namespace pedl
