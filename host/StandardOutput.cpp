#include "host/StandardOutput.h"

#include "foundation/platform/StandardStream.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {

namespace {

/// Where a file stands that can be written at any place; with O_APPEND (">>") all goes to its end.
std::optional<std::int64_t> placeInFile(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        (fcntl(descriptor, F_GETFL) & O_APPEND) != 0)
        return std::nullopt;
    const off_t place = lseek(descriptor, 0, SEEK_CUR);
    return place >= 0 ? std::optional<std::int64_t>(place) : std::nullopt;
}

} // namespace

std::unique_ptr<ByteSink> StandardOutput::create() {
    return std::unique_ptr<ByteSink>(new StandardOutput(placeInFile(STDOUT_FILENO)));
}

std::size_t StandardOutput::write(const void* data, std::size_t bytes) {
    if (errorNumber_ != 0)
        return 0;
    if (start_) {
        errorNumber_ = writeWhole(STDOUT_FILENO, data, bytes, *start_ + placeBytes());
    } else {
        const auto all = static_cast<std::int64_t>(bytes);
        const auto gone =
            static_cast<std::size_t>(std::clamp<std::int64_t>(sizeBytes() - placeBytes(), 0, all));
        errorNumber_ = writeWhole(STDOUT_FILENO, static_cast<const std::byte*>(data) + gone,
                                  bytes - gone, std::nullopt);
    }
    if (errorNumber_ != 0)
        return 0;
    moveOn(bytes);
    return bytes;
}

Done StandardOutput::state() const {
    if (errorNumber_ == 0)
        return done();
    return Problem{std::string(kStandardOutput) +
                   ": cannot be written: " + systemText(errorNumber_)};
}

Done StandardOutput::commit() {
    if (errorNumber_ == 0 && start_) // whoever writes into the file next, does so behind
        lseek(STDOUT_FILENO, *start_ + sizeBytes(), SEEK_SET);
    return state();
}

} // namespace pedl
