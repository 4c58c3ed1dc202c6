#include "host/OutputFile.h"

#include "foundation/platform/FileReplacement.h"
#include "host/Interrupt.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace pedl {

namespace {

/// A new file beside the wanted one, its name in `path`. Not mkstemp: for the mode that the user's
/// mask leaves, the mask would have to be asked, and that is done by setting it for all threads.
int openTemporary(const std::filesystem::path& folder, mode_t mode, std::filesystem::path& path) {
    constexpr int kMostTries = 100;
    const std::string start = ".zmt-pedlfilter." + std::to_string(getpid()) + '.';
    int descriptor = -1;
    for (int i = 0; i < kMostTries && descriptor < 0 && (i == 0 || errno == EEXIST); ++i) {
        path = folder / (start + std::to_string(i));
        descriptor = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
    }
    return descriptor;
}

} // namespace

Result<std::unique_ptr<OutputFile>> OutputFile::create(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::path target = std::filesystem::canonical(path, error);
    if (error)
        target = path; // not there yet
    std::unique_ptr<OutputFile> file(new OutputFile(path, std::move(target)));
    if (const Done opened = file->open(); !opened.ok())
        return opened.problem();
    return file;
}

Done OutputFile::open() {
    struct stat held {};
    const bool exists = stat(target_.c_str(), &held) == 0;
    if (exists && S_ISDIR(held.st_mode))
        return Problem{shown_.string() + ": is a folder"};
    if (exists && S_ISCHR(held.st_mode)) {
        descriptor_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
        return descriptor_ >= 0 ? done() : failed(errno);
    }
    if (exists && !S_ISREG(held.st_mode))
        return Problem{shown_.string() +
                       ": is not a file; audio cannot be written where it cannot go back"};
    if (exists && access(target_.c_str(), W_OK) != 0)
        return failed(errno);

    const std::filesystem::path folder =
        target_.has_parent_path() ? target_.parent_path() : std::filesystem::path(".");
    std::filesystem::path temporary;
    descriptor_ = openTemporary(folder, exists ? kForTheOwner : kForEveryone, temporary);
    if (descriptor_ < 0) {
        const int errorNumber = errno;
        return Problem{shown_.string() + ": cannot be written in the folder " + folder.string() +
                       ": " + systemText(errorNumber)};
    }
    temporary_ = temporary;
    Interrupt::removeAtEnd(temporary_);
    if (exists)
        fchmod(descriptor_, held.st_mode & 07777);
    return done();
}

OutputFile::~OutputFile() {
    if (descriptor_ >= 0)
        close(descriptor_);
    if (!temporary_.empty()) {
        unlink(temporary_.c_str());
        Interrupt::removeAtEnd({});
    }
}

std::size_t OutputFile::write(const void* data, std::size_t bytes) {
    const auto* from = static_cast<const std::byte*>(data);
    for (std::size_t written = 0; written < bytes && errorNumber_ == 0;) {
        const ssize_t more = pwrite(descriptor_, from + written, bytes - written,
                                    placeBytes_ + static_cast<std::int64_t>(written));
        if (more > 0)
            written += static_cast<std::size_t>(more);
        else if (more == 0 || errno != EINTR)
            errorNumber_ = more == 0 ? EIO : errno;
    }
    if (errorNumber_ != 0)
        return 0;
    placeBytes_ += static_cast<std::int64_t>(bytes);
    sizeBytes_ = std::max(sizeBytes_, placeBytes_);
    return bytes;
}

Done OutputFile::state() const {
    return errorNumber_ == 0 ? done() : failed(errorNumber_);
}

Done OutputFile::commit() {
    if (errorNumber_ != 0)
        return failed(errorNumber_);
    if (temporary_.empty())
        return done();
    // Some file systems report a full disk only here.
    const bool isSafe = fsync(descriptor_) == 0;
    const int syncError = errno;
    const bool isClosed = close(descriptor_) == 0;
    const int closeError = errno;
    descriptor_ = -1;
    if (!isSafe || !isClosed)
        return failed(!isSafe ? syncError : closeError);
    if (rename(temporary_.c_str(), target_.c_str()) != 0)
        return failed(errno);
    temporary_.clear();
    Interrupt::removeAtEnd({});
    return done();
}

Problem OutputFile::failed(int errorNumber) const {
    return {shown_.string() + ": cannot be written: " + systemText(errorNumber)};
}

} // namespace pedl
