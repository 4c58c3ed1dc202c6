#include "host/Messages.h"

#include <fcntl.h>
#include <unistd.h>

namespace pedl {

namespace {

/// The user's stream while the plug-in is kept from it, else null.
std::FILE* keptStream = nullptr;
int keptDescriptor = STDERR_FILENO;

} // namespace

std::FILE* messages() noexcept {
    return keptStream != nullptr ? keptStream : stderr;
}

int messageDescriptor() noexcept {
    return keptDescriptor;
}

PluginSilence::PluginSilence(bool isVerbose) noexcept {
    if (isVerbose)
        return;
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    const int kept = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    std::FILE* const stream = nowhere >= 0 && kept >= 0 ? fdopen(kept, "w") : nullptr;
    if (stream != nullptr) {
        std::setvbuf(stream, nullptr, _IONBF, 0);
        std::fflush(stderr);
        dup2(nowhere, STDERR_FILENO);
        keptDescriptor = kept;
        keptStream = stream;
    } else if (kept >= 0) {
        close(kept);
    }
    if (nowhere >= 0)
        close(nowhere);
}

PluginSilence::~PluginSilence() {
    if (keptStream == nullptr)
        return;
    std::fflush(stderr); // what the plug-in left in the buffer goes the way of the rest
    dup2(keptDescriptor, STDERR_FILENO);
    keptDescriptor = STDERR_FILENO;
    std::fclose(keptStream);
    keptStream = nullptr;
}

} // namespace pedl
