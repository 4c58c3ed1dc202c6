#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"
#include "demo/tour/CommandRun.h"
#include "demo/tour/DemoSetting.h"

#include <filesystem>

namespace pedl::demo {

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
