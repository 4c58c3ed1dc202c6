#include "foundation/platform/NewFile.h"

#include <array>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace pedl {

namespace {

using Problem = std::optional<FileProblem>;

constexpr mode_t kModeBits = 07777;

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

} // namespace

NewFile::~NewFile() {
    if (!temporaryName_.empty())
        uninterrupted([&] { return ::unlinkat(folder_.number(), temporaryName_.c_str(), 0); });
}

bool NewFile::openUnnamed(mode_t mode) {
    file_ = FileDescriptor(uninterrupted(
        [&] { return ::openat(folder_.number(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode); }));
    return file_.isOpen() && lock();
}

Problem NewFile::openNamed(mode_t mode) {
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

Problem NewFile::write(std::span<const std::byte> bytes) {
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

Problem NewFile::resemble(const struct stat& old) {
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

Problem NewFile::bringToDisk() {
    if (uninterrupted([&] { return ::fsync(file_.number()); }) != 0)
        return failed("fsync");
    return std::nullopt;
}

bool NewFile::giveName() {
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

Problem NewFile::putInPlace() {
    const std::string name(name_);
    if (uninterrupted([&] {
            return ::renameat(folder_.number(), temporaryName_.c_str(), folder_.number(),
                              name.c_str());
        }) != 0)
        return failed("rename");
    temporaryName_.clear();
    return std::nullopt;
}

/// False where somebody else has it. A file system without locks has nobody who could.
bool NewFile::lock() const {
    return ::flock(file_.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool NewFile::isRemoved() const {
    struct stat status {};
    return uninterrupted([&] { return ::fstat(file_.number(), &status); }) == 0 &&
           status.st_nlink == 0;
}

namespace {

/// Removes a file that was to replace `name`, unless its maker is still at work on it.
void removeAbandoned(const FileDescriptor& folder, const char* temporary) {
    const FileDescriptor file(
        ::openat(folder.number(), temporary, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0)
        ::unlinkat(folder.number(), temporary, 0);
}

} // namespace

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

} // namespace pedl
