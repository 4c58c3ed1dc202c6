#include "foundation/platform/StandardErrorStream.h"

#include <cstdio>

namespace pedl {

void StandardErrorStream::line(std::string_view text) {
    // The C stream, not std::cerr: that one would bring its start-up code into the library. Locked
    // over both writes, so that no other thread's line comes between.
    ::flockfile(stderr);
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fputc('\n', stderr);
    ::funlockfile(stderr);
}

} // namespace pedl
