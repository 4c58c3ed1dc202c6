#pragma once

#include "foundation/text/Result.h"
#include "host/Renderer.h"
#include "host/StartingState.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pedl {

/// What `zmt-pedlfilter render` was asked for, numbers in range already.
struct RenderRequest {
    std::filesystem::path in;
    std::filesystem::path out;
    std::filesystem::path plugin;
    StartingState start;
    std::vector<std::string> automations; // "parameter=curve.csv"
    std::optional<std::filesystem::path> midi;
    double tempoBpm = 120.0; // until the MIDI file's first tempo
    VstInt32 blockFrames = 512;
    Precision precision = Precision::Float;
    double tailSeconds = 0.0;
    bool isStrict = false; // what is worth a warning is an error, and OUT stays as it is
};

/// Renders one file. Everything that can be found wrong beforehand is, before OUT is touched.
///
/// The plug-in gets its starting state, then the audio with curves and MIDI.
Result<RenderReport> render(const RenderRequest& request);

} // namespace pedl
