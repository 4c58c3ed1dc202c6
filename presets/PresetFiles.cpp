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

std::string_view loadProblemText(LoadResult result) noexcept {
    switch (result) {
    case LoadResult::Loaded:
        return "";
    case LoadResult::TooShort:
        return "ends before anything in it is whole";
    case LoadResult::Foreign:
        return "belongs to another plug-in";
    case LoadResult::UnknownKind:
        return "is of another kind";
    case LoadResult::Missing:
        return "is not there";
    case LoadResult::NotAFile:
        return "is no file";
    case LoadResult::TooLarge:
        return "is too large";
    case LoadResult::Unreadable:
        break;
    }
    return "cannot be read";
}

LoadResult PresetFiles::load(FileKind kind, const std::string& path, OrderDecision decision) {
    recent_.remember(kind, path);
    const FileContents contents = readFile(path);
    if (contents.result != ReadResult::Read) {
        say(path, "was not loaded, nothing changed", contents.problem);
        return loadResult(contents.result);
    }
    const LoadResult result = state_.load(kind, contents.bytes, decision);
    if (result != LoadResult::Loaded)
        diagnostics_.line("\"" + path + "\" " + std::string(loadProblemText(result)) +
                          ", nothing changed");
    return result;
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
