#include "foundation/platform/FileReplacement.h"

#include "foundation/platform/FileDescriptor.h"

#include <array>
#include <cinttypes>
#include <climits>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>

namespace pedl {

namespace {

using Problem = std::optional<FileProblem>;

constexpr int kMaxLinks = 40; // as many as the kernel follows

constexpr mode_t kModeBits = 07777;

FileProblem failed(const char* call) {
    return {call, errno, false};
}

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

// The new file's name while it is not in place

constexpr std::string_view kTemporaryEnd = ".new";
constexpr std::size_t kDigits = 16;
constexpr std::size_t kLongestCopiedName = 200; // with the rest it must stay below NAME_MAX

/// ".lead.zmb." for "lead.zmb": hidden, and found again by the next replacement.
std::string temporaryStart(std::string_view name) {
    return '.' + std::string(name.substr(0, kLongestCopiedName)) + '.';
}

/// A name that nobody has: whoever makes a file of it asks for a new one, so chance is enough.
std::string temporaryName(std::string_view name) {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const auto nanoseconds = static_cast<std::uint64_t>(now.tv_sec) * 1000000000U +
                             static_cast<std::uint64_t>(now.tv_nsec);
    const std::uint64_t mixed = nanoseconds ^ static_cast<std::uint64_t>(::getpid()) << 40U;
    std::array<char, kDigits + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "%016" PRIx64, mixed);
    return temporaryStart(name) + digits.data() + std::string(kTemporaryEnd);
}

bool isTemporaryNameOf(std::string_view name, std::string_view candidate) {
    const std::string start = temporaryStart(name);
    if (candidate.size() != start.size() + kDigits + kTemporaryEnd.size() ||
        !candidate.starts_with(start) || !candidate.ends_with(kTemporaryEnd))
        return false;
    const std::string_view digits = candidate.substr(start.size(), kDigits);
    return digits.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

/// A new file that is not in place yet, beside the one that it will replace. Removed again at the
/// end of scope, unless it was put in place.
///
/// Its lock tells others that somebody is at work on it.
class NewFile {
public:
    NewFile(const FileDescriptor& folder, std::string_view name) : folder_(folder), name_(name) {}
    ~NewFile() {
        if (!temporaryName_.empty())
            uninterrupted([&] { return ::unlinkat(folder_.number(), temporaryName_.c_str(), 0); });
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Opens a file that nobody else can see, where the file system has such.
    bool openUnnamed(mode_t mode) {
        file_ = FileDescriptor(uninterrupted([&] {
            return ::openat(folder_.number(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
        }));
        return file_.isOpen() && lock();
    }

    Problem openNamed(mode_t mode) {
        for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
            std::string wanted = temporaryName(name_);
            file_ = FileDescriptor(uninterrupted([&] {
                return ::openat(folder_.number(), wanted.c_str(),
                                O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, mode);
            }));
            if (!file_.isOpen() && errno != EEXIST)
                return failed("open");
            if (!file_.isOpen())
                continue;
            temporaryName_ = std::move(wanted);
            if (lock() && !isRemoved())
                return std::nullopt;
            // Between the two calls somebody took it for one that was left behind.
        }
        return FileProblem{"open", EEXIST};
    }

    /// Writes all of it, in as many steps as the system takes; the size is the proof.
    Problem write(std::span<const std::byte> bytes) {
        const std::size_t wholeBytes = bytes.size();
        while (!bytes.empty()) {
            const ssize_t step =
                uninterrupted([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
            if (step < 0)
                return failed("write");
            if (step == 0)
                return FileProblem{"write", ENOSPC};
            bytes = bytes.subspan(static_cast<std::size_t>(step));
        }
        struct stat status {};
        if (uninterrupted([&] { return ::fstat(file_.number(), &status); }) != 0)
            return failed("fstat");
        if (status.st_size != static_cast<off_t>(wholeBytes))
            return FileProblem{"written only in part"};
        return std::nullopt;
    }

    /// Takes over what the old file had. The mode comes last: a new owner takes bits from it.
    Problem resemble(const struct stat& old) {
        struct stat now {};
        if (uninterrupted([&] { return ::fstat(file_.number(), &now); }) != 0)
            return failed("fstat");
        if (now.st_uid != old.st_uid || now.st_gid != old.st_gid)
            static_cast<void>(::fchown(file_.number(), old.st_uid, old.st_gid) == 0 ||
                              ::fchown(file_.number(), uid_t(-1), old.st_gid) == 0);
        if (uninterrupted([&] { return ::fchmod(file_.number(), old.st_mode & kModeBits); }) != 0)
            return failed("fchmod");
        return std::nullopt;
    }

    Problem bringToDisk() {
        if (uninterrupted([&] { return ::fsync(file_.number()); }) != 0)
            return failed("fsync");
        return std::nullopt;
    }

    /// Gives an unnamed file a name. False where that cannot be: /proc may be missing.
    bool giveName() {
        const std::string self = "/proc/self/fd/" + std::to_string(file_.number());
        std::string wanted = temporaryName(name_);
        if (uninterrupted([&] {
                return ::linkat(AT_FDCWD, self.c_str(), folder_.number(), wanted.c_str(),
                                AT_SYMLINK_FOLLOW);
            }) != 0)
            return false;
        temporaryName_ = std::move(wanted);
        return true;
    }

    Problem putInPlace() {
        const std::string name(name_);
        if (uninterrupted([&] {
                return ::renameat(folder_.number(), temporaryName_.c_str(), folder_.number(),
                                  name.c_str());
            }) != 0)
            return failed("rename");
        temporaryName_.clear();
        return std::nullopt;
    }

private:
    /// False where somebody else has it. A file system without locks has nobody who could.
    [[nodiscard]] bool lock() const {
        return ::flock(file_.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    }

    [[nodiscard]] bool isRemoved() const {
        struct stat status {};
        return uninterrupted([&] { return ::fstat(file_.number(), &status); }) == 0 &&
               status.st_nlink == 0;
    }

    const FileDescriptor& folder_;
    std::string_view name_;
    FileDescriptor file_;
    std::string temporaryName_;
};

// What killed processes left behind

/// Removes a file that was to replace `name`, unless its maker is still at work on it.
void removeAbandoned(const FileDescriptor& folder, const char* temporary) {
    const FileDescriptor file(
        ::openat(folder.number(), temporary, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0)
        ::unlinkat(folder.number(), temporary, 0);
}

void removeAbandonedFilesOf(const FileDescriptor& folder, std::string_view name) {
    const int listed = ::openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const auto close = [](DIR* list) { ::closedir(list); };
    const std::unique_ptr<DIR, decltype(close)> list(listed < 0 ? nullptr : ::fdopendir(listed));
    if (list == nullptr)
        return; // not worth a word: the file is in place
    // NOLINTNEXTLINE(concurrency-mt-unsafe): each list is one thread's own
    while (const dirent* const entry = ::readdir(list.get()))
        if (isTemporaryNameOf(name, entry->d_name))
            removeAbandoned(folder, entry->d_name);
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
