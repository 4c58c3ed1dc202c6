#include "foundation/platform/FileReplacement.h"

#include "foundation/platform/FileDescriptor.h"
#include "foundation/platform/NewFile.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>

namespace pedl {

namespace {

using Problem = std::optional<FileProblem>;

constexpr int kMaxLinks = 40; // as many as the kernel follows

// Where the file is

/// A path, cut at its last '/'. Ours rather than the library's: that one reads the locale.
struct Place {
    std::string folder;
    std::string name;
};

Place placeOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return {".", path};
    return {path.substr(0, slash == 0 ? 1 : slash), path.substr(slash + 1)};
}

/// Where a symbolic link leads to; nothing where `path` is none.
std::optional<std::string> linkTarget(const std::string& path) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length =
        uninterrupted([&] { return ::readlink(path.c_str(), target.data(), target.size()); });
    if (length < 0)
        return std::nullopt;
    const std::string text(target.data(), static_cast<std::size_t>(length));
    return text.starts_with('/') ? text : placeOf(path).folder + '/' + text;
}

/// Follows symbolic links by hand, since the last one may lead to a file that is not there yet.
Problem followLinks(std::string& path) {
    for (int links = 0; links < kMaxLinks; ++links) {
        std::optional<std::string> target = linkTarget(path);
        if (!target)
            return std::nullopt; // whatever the reason was, the next call meets it again
        path = *std::move(target);
    }
    return FileProblem{"readlink", ELOOP};
}

int openFolder(const std::string& path) {
    return uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
}

// The old file

/// What stands under the name: nothing, or a file that may be replaced.
Problem lookAt(const FileDescriptor& folder, const std::string& name,
               std::optional<struct stat>& old) {
    struct stat status {};
    if (uninterrupted([&] {
            return ::fstatat(folder.number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW);
        }) != 0)
        return errno == ENOENT ? std::nullopt : Problem(failed("stat"));
    if (!S_ISREG(status.st_mode))
        return FileProblem{"not a file"};
    if (uninterrupted(
            [&] { return ::faccessat(folder.number(), name.c_str(), W_OK, AT_EACCESS); }) != 0)
        return failed("access");
    old = status;
    return std::nullopt;
}

Problem fill(NewFile& file, std::span<const std::byte> bytes,
             const std::optional<struct stat>& old) {
    if (const Problem problem = file.write(bytes))
        return problem;
    if (old)
        if (const Problem problem = file.resemble(*old))
            return problem;
    return file.bringToDisk();
}

/// A whole new file with a temporary name.
Problem makeWhole(NewFile& file, mode_t mode, std::span<const std::byte> bytes,
                  const std::optional<struct stat>& old) {
    if (file.openUnnamed(mode)) {
        if (const Problem problem = fill(file, bytes, old))
            return problem;
        if (file.giveName())
            return std::nullopt;
    }
    if (const Problem problem = file.openNamed(mode))
        return problem;
    return fill(file, bytes, old);
}

/// The step after a change of names: it is seen at once, and lasts when this is done.
Problem bringToDisk(const FileDescriptor& folder) {
    if (!folder.isOpen())
        return FileProblem{"open of the folder", errno, true};
    // Some file systems have nothing to do for a folder and say so.
    if (uninterrupted([&] { return ::fsync(folder.number()); }) != 0 && errno != EINVAL)
        return FileProblem{"fsync of the folder", errno, true};
    return std::nullopt;
}

} // namespace

std::optional<FileProblem> replaceFile(const std::string& path, std::span<const std::byte> bytes,
                                       mode_t newFileMode) {
    std::string target = path;
    if (const Problem problem = followLinks(target))
        return problem;
    const Place place = placeOf(target);
    if (place.name.empty())
        return FileProblem{"not a file"};
    const FileDescriptor folder(openFolder(place.folder));
    if (!folder.isOpen())
        return failed("open of the folder");
    std::optional<struct stat> old;
    if (const Problem problem = lookAt(folder, place.name, old))
        return problem;

    NewFile file(folder, place.name);
    if (const Problem problem = makeWhole(file, old ? kForTheOwner : newFileMode, bytes, old))
        return problem;
    if (const Problem problem = file.putInPlace())
        return problem;
    removeAbandonedFilesOf(folder, place.name);
    return bringToDisk(folder);
}

std::optional<FileProblem> removeFile(const std::string& path) {
    if (uninterrupted([&] { return ::unlink(path.c_str()); }) != 0) {
        const bool isGone = errno == ENOENT || errno == ENOTDIR;
        return isGone ? std::nullopt : Problem(failed("unlink"));
    }
    return bringToDisk(FileDescriptor(openFolder(placeOf(path).folder)));
}

std::optional<FileProblem> makePrivateFolder(const std::string& path) {
    constexpr mode_t kOwnersFolder = 0700;
    const auto make = [&] {
        return uninterrupted([&] { return ::mkdir(path.c_str(), kOwnersFolder); });
    };
    int made = make();
    const Place place = placeOf(path);
    if (made != 0 && errno == ENOENT && place.folder.size() < path.size()) {
        if (const Problem problem = makePrivateFolder(place.folder); problem && !problem->isDone)
            return problem;
        made = make();
    }
    if (made != 0)
        return errno == EEXIST ? std::nullopt : Problem(failed("mkdir"));
    return bringToDisk(FileDescriptor(openFolder(place.folder)));
}

} // namespace pedl
