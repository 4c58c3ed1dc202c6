#pragma once

#include "presets/ProgramRecord.h"

#include <string>
#include <vector>

namespace pedl::demo {

/// One thing that a name promises, as it was measured.
struct Promise {
    std::string what; ///< with the measured figure
    bool isKept;
};

/// Everything that the program of this slot promises.
std::vector<Promise> promisesOf(int slot, const ProgramRecord& program);

} // namespace pedl::demo
