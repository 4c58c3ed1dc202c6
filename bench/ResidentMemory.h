#pragma once

#include <fstream>
#include <unistd.h>

namespace pedl::bench {

/// What the process holds in memory now, in millions of bytes.
inline double residentMegabytes() {
    std::ifstream statm("/proc/self/statm");
    long total = 0, resident = 0;
    statm >> total >> resident;
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1e6;
}

} // namespace pedl::bench
