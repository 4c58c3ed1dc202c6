#pragma once

#include "demo/CommandRun.h"
#include "demo/DemoSetting.h"
#include "demo/StereoSound.h"

#include <filesystem>
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

/// The modulation behind a rendered sound. No host can see it, so the effect, linked into this
/// program, plays the same input with the same settings in the same blocks once more, and is looked
/// into after each. A random wave is seeded from the calendar: each second in which the command ran
/// is tried.
///
/// Throws std::runtime_error where no run gives the rendered sound: a trace of another sound is
/// never drawn.
///
/// @param curves  the folder of the settings' automation curves
ModulationTrace traceModulation(const DemoSetting& setting, const std::filesystem::path& curves,
                                const StereoSound& input, const StereoSound& rendered,
                                const Rendering& rendering);

} // namespace pedl::demo
