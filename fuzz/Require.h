#pragma once

#include <cstdlib>

namespace pedl::fuzz {

/// A promise that every input has to keep: a broken one ends the process, which a fuzzer notes.
inline void require(bool isTrue) {
    if (!isTrue)
        std::abort();
}

} // namespace pedl::fuzz
