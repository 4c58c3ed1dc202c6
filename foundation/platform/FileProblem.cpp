#include "foundation/platform/FileProblem.h"

#include <cerrno>
#include <cstring>

namespace pedl {

std::string FileProblem::text() const {
    if (number == 0)
        return call;
    // Not strerror: its text may belong to another thread's error, or to the host's locale.
    const char* const description = ::strerrordesc_np(number);
    return std::string(call) + ": " +
           (description != nullptr ? description : "error " + std::to_string(number));
}

FileProblem failed(const char* call) noexcept {
    return {call, errno, false};
}

} // namespace pedl
