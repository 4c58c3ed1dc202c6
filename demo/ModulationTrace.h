#pragma once

#include <vector>

namespace pedl::demo {

/// What moved the sound, read after each block.
struct ModulationPoint {
    double seconds = 0.0;
    double cutoffLeftHz = 0.0;
    double cutoffRightHz = 0.0;
    double gainLeft = 1.0; ///< linear: LFO, envelope and its makeup together
    double gainRight = 1.0;
};

using ModulationTrace = std::vector<ModulationPoint>;

} // namespace pedl::demo
