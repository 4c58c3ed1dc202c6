#include "host/ByteSink.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace pedl {

int ByteSink::writeWhole(int descriptor, const void* data, std::size_t bytes,
                         std::optional<std::int64_t> at) {
    const auto* from = static_cast<const std::byte*>(data);
    for (std::size_t written = 0; written < bytes;) {
        const std::size_t left = bytes - written;
        const ssize_t more =
            at ? pwrite(descriptor, from + written, left, *at + static_cast<std::int64_t>(written))
               : ::write(descriptor, from + written, left);
        if (more > 0)
            written += static_cast<std::size_t>(more);
        else if (more == 0 || errno != EINTR)
            return more == 0 ? EIO : errno;
    }
    return 0;
}

void ByteSink::moveOn(std::size_t bytes) {
    placeBytes_ += static_cast<std::int64_t>(bytes);
    sizeBytes_ = std::max(sizeBytes_, placeBytes_);
}

} // namespace pedl
