#include "foundation/platform/StandardErrorStream.h"

#include <cstdio>
#include <string>

namespace pedl {

void StandardErrorStream::line(std::string_view text) {
    // The C stream, not std::cerr: that one would bring its start-up code into the library.
    std::string whole(text);
    whole += '\n';
    std::fwrite(whole.data(), 1, whole.size(), stderr);
}

} // namespace pedl
