#include "foundation/platform/FileReading.h"

#include "foundation/platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {

namespace {

constexpr std::size_t kStepBytes = std::size_t{1} << 16;

FileContents refusal(ReadResult result, FileProblem problem) {
    return {result, {}, problem};
}

FileContents failure(const char* call) {
    const bool isMissing = errno == ENOENT || errno == ENOTDIR;
    return refusal(isMissing ? ReadResult::Missing : ReadResult::Unreadable, {call, errno, false});
}

FileContents tooLarge(ReadLimit limit) {
    return refusal(ReadResult::TooLarge, {limit.refusal});
}

/// Until the end, which the size only promises: it may be cut or grow while it is read.
FileContents readToEnd(int descriptor, std::size_t promisedBytes, ReadLimit limit) {
    FileContents contents{ReadResult::Read, {}, {}};
    std::vector<std::byte>& bytes = contents.bytes;
    bytes.reserve(promisedBytes + 1);
    for (;;) {
        const std::size_t before = bytes.size();
        bytes.resize(before + kStepBytes);
        const ssize_t step =
            uninterrupted([&] { return ::read(descriptor, bytes.data() + before, kStepBytes); });
        if (step < 0)
            return failure("read");
        bytes.resize(before + static_cast<std::size_t>(step));
        if (step == 0)
            return contents;
        if (bytes.size() > limit.bytes)
            return tooLarge(limit);
    }
}

} // namespace

FileContents readFile(const std::string& path, ReadLimit limit) {
    constexpr int kWithoutWaiting = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const FileDescriptor file(uninterrupted([&] { return ::open(path.c_str(), kWithoutWaiting); }));
    if (!file.isOpen())
        return failure("open");
    struct stat status {};
    if (uninterrupted([&] { return ::fstat(file.number(), &status); }) != 0)
        return failure("fstat");
    if (!S_ISREG(status.st_mode))
        return refusal(ReadResult::NotAFile, {"not a file"});
    if (status.st_size > static_cast<off_t>(limit.bytes))
        return tooLarge(limit);
    return readToEnd(file.number(), static_cast<std::size_t>(status.st_size), limit);
}

FileContents readStandardInput(ReadLimit limit) {
    return readToEnd(STDIN_FILENO, 0, limit);
}

bool canRead(const std::string& path) {
    return ::access(path.c_str(), R_OK) == 0;
}

} // namespace pedl
