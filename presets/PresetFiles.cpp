#include "presets/PresetFiles.h"

#include "foundation/platform/FileReading.h"
#include "foundation/platform/FileReplacement.h"

namespace pedl {

namespace {

LoadResult loadResult(ReadResult result) {
    switch (result) {
    case ReadResult::Read:
        return LoadResult::Loaded;
    case ReadResult::Missing:
        return LoadResult::Missing;
    case ReadResult::NotAFile:
        return LoadResult::NotAFile;
    case ReadResult::TooLarge:
        return LoadResult::TooLarge;
    case ReadResult::Unreadable:
        break;
    }
    return LoadResult::Unreadable;
}

} // namespace

LoadResult PresetFiles::load(FileKind kind, const std::string& path, OrderDecision decision) {
    recent_.remember(kind, path);
    const FileContents contents = readFile(path);
    if (contents.result == ReadResult::Read)
        return state_.load(kind, contents.bytes, decision);
    say(path, "was not loaded, nothing changed", contents.problem);
    return loadResult(contents.result);
}

std::optional<FileProblem> PresetFiles::save(FileKind kind, const std::string& path) {
    recent_.remember(kind, path);
    std::optional<FileProblem> problem = replaceFile(path, state_.stored(kind), kForEveryone);
    if (problem)
        say(path,
            problem->isDone ? "was saved, but may not outlive a loss of power"
                            : "was not saved, what was there is kept",
            *problem);
    return problem;
}

void PresetFiles::say(const std::string& path, std::string_view what, const FileProblem& problem) {
    diagnostics_.line("\"" + path + "\" " + std::string(what) + " (" + problem.text() + ")");
}

} // namespace pedl
