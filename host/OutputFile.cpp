#include "host/OutputFile.h"

#include "foundation/platform/FileReplacement.h"
#include "host/Interrupt.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace pedl {

namespace {

/// Whether a file without a name can get one later.
bool canBeNamed(int descriptor) {
    return access(("/proc/self/fd/" + std::to_string(descriptor)).c_str(), F_OK) == 0;
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
        device_ = FileDescriptor(::open(target_.c_str(), O_WRONLY | O_CLOEXEC));
        return device_.isOpen() ? done() : failed(errno);
    }
    if (exists && !S_ISREG(held.st_mode))
        return Problem{shown_.string() +
                       ": is not a file; \"-\" writes into a pipe, as standard output"};
    if (exists && access(target_.c_str(), W_OK) != 0)
        return failed(errno);
    return openNew(exists ? &held : nullptr);
}

Done OutputFile::openNew(const struct stat* held) {
    const std::filesystem::path folder =
        target_.has_parent_path() ? target_.parent_path() : std::filesystem::path(".");
    const auto refused = [&](int errorNumber) {
        return Problem{shown_.string() + ": cannot be written in the folder " + folder.string() +
                       ": " + systemText(errorNumber)};
    };
    folder_ = FileDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder_.isOpen())
        return refused(errno);
    name_ = target_.filename().string();
    removeAbandonedFilesOf(folder_, name_);
    const mode_t mode = held != nullptr ? kForTheOwner : kForEveryone;
    file_ = std::make_unique<NewFile>(folder_, name_);
    if (!file_->openUnnamed(mode) || !canBeNamed(file_->number())) {
        file_ = std::make_unique<NewFile>(folder_, name_);
        if (const std::optional<FileProblem> problem = file_->openNamed(mode))
            return refused(problem->number);
        Interrupt::removeAtEnd(folder / file_->nameSoFar());
    }
    if (held != nullptr)
        if (const std::optional<FileProblem> problem = file_->resemble(*held))
            return failed(problem->number);
    return done();
}

OutputFile::~OutputFile() {
    file_.reset();
    Interrupt::removeAtEnd({});
}

std::size_t OutputFile::write(const void* data, std::size_t bytes) {
    const int descriptor = file_ != nullptr ? file_->number() : device_.number();
    if (errorNumber_ == 0)
        errorNumber_ = writeWhole(descriptor, data, bytes, placeBytes());
    if (errorNumber_ != 0)
        return 0;
    moveOn(bytes);
    return bytes;
}

Done OutputFile::state() const {
    return errorNumber_ == 0 ? done() : failed(errorNumber_);
}

Done OutputFile::commit() {
    if (errorNumber_ != 0)
        return failed(errorNumber_);
    if (file_ == nullptr)
        return done();
    // Some file systems report a full disk only here.
    if (const std::optional<FileProblem> problem = file_->bringToDisk())
        return failed(problem->number);
    if (file_->nameSoFar().empty() && !file_->giveName())
        return failed(errno);
    if (const std::optional<FileProblem> problem = file_->putInPlace())
        return failed(problem->number);
    Interrupt::removeAtEnd({});
    return done();
}

Problem OutputFile::failed(int errorNumber) const {
    return {shown_.string() + ": cannot be written: " + systemText(errorNumber)};
}

} // namespace pedl
