#include "foundation/platform/FileSettingsStore.h"

#include "foundation/platform/FileReading.h"
#include "foundation/platform/FileReplacement.h"

#include <cassert>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <utility>

namespace pedl {

namespace {

constexpr std::string_view kFolderInConfiguration = "/ZMT-sonics/ZMTpedlFilter";

constexpr const char* kNoFolder = "there is no folder for settings, set HOME";

bool isWholePath(const char* path) {
    return path != nullptr && *path == '/';
}

/// The home folder that the system's user database knows.
std::optional<std::string> registeredHome() {
    constexpr std::size_t kTextBytes = 16384; // a record has a few hundred
    std::vector<char> texts(kTextBytes);
    passwd record{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &record, texts.data(), texts.size(), &found) != 0 ||
        found == nullptr || !isWholePath(found->pw_dir))
        return std::nullopt;
    return found->pw_dir;
}

} // namespace

FileSettingsStore::FileSettingsStore(std::optional<std::string> folder,
                                     DiagnosticStream& diagnostics)
    : folder_(std::move(folder)), diagnostics_(diagnostics) {}

std::string FileSettingsStore::pathOf(std::string_view name) const {
    assert(!name.empty() && name.front() != '.' && name.find('/') == std::string_view::npos &&
           "names are ours");
    return *folder_ + '/' + std::string(name);
}

void FileSettingsStore::complain(std::string_view name, std::string_view what,
                                 const std::string& why) {
    const std::string place = folder_ ? pathOf(name) : std::string(name);
    diagnostics_.line("settings: \"" + place + "\" " + std::string(what) + " (" + why + ")");
}

bool FileSettingsStore::isDone(std::string_view name, const std::optional<FileProblem>& problem,
                               std::string_view whatIfNot) {
    if (!problem)
        return true;
    complain(name, problem->isDone ? "may not outlive a loss of power" : whatIfNot,
             problem->text());
    return problem->isDone;
}

std::optional<std::vector<std::byte>> FileSettingsStore::read(std::string_view name) {
    if (!folder_)
        return std::nullopt;
    FileContents contents = readFile(pathOf(name));
    if (contents.result == ReadResult::Read)
        return std::move(contents.bytes);
    if (contents.result != ReadResult::Missing)
        complain(name, "cannot be read and counts as missing", contents.problem.text());
    return std::nullopt;
}

bool FileSettingsStore::write(std::string_view name, std::span<const std::byte> bytes) {
    if (!folder_) {
        complain(name, "was not stored", kNoFolder);
        return false;
    }
    std::optional<FileProblem> problem = makePrivateFolder(*folder_);
    if (!problem || problem->isDone)
        problem = replaceFile(pathOf(name), bytes, kForTheOwner);
    return isDone(name, problem, "was not stored, what it was is kept");
}

bool FileSettingsStore::erase(std::string_view name) {
    if (!folder_)
        return true;
    return isDone(name, removeFile(pathOf(name)), "was not removed");
}

std::optional<std::string> userSettingsFolder() {
    // NOLINTBEGIN(concurrency-mt-unsafe): read once, when the host makes an instance
    const char* const configuration = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    // NOLINTEND(concurrency-mt-unsafe)
    if (isWholePath(configuration))
        return std::string(configuration).append(kFolderInConfiguration);
    std::optional<std::string> base = isWholePath(home) ? std::string(home) : registeredHome();
    if (base)
        base->append("/.config").append(kFolderInConfiguration);
    return base;
}

} // namespace pedl
