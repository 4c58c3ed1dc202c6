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

/// What moves in a program while noise of one level plays, or its own material.
struct Movement {
    double lowHz = 0.0;    ///< of the cut-off: a twentieth of the time it is lower
    double middleHz = 0.0; ///< half of the time
    double highHz = 0.0;   ///< a twentieth of the time it is higher
    double depthOctaves = 0.0;
    double quietGainDb = 0.0; ///< of the gain, in the same way
    double loudGainDb = 0.0;
    double cutoffRateHz = 0.0; ///< of the strongest periodic movement, 0 for none
    double gainRateHz = 0.0;
};

/// The movement by the LFO alone: the program plays steady noise.
Movement steadyMovement(const ProgramRecord& program, double levelDb, double tempoBpm);

/// Everything that the program of this slot promises.
std::vector<Promise> promisesOf(int slot, const ProgramRecord& program);

} // namespace pedl::demo
