#pragma once

#include "foundation/text/Result.h"
#include "host/Renderer.h"

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
    std::optional<std::filesystem::path> bank;
    std::optional<std::string> program; // name or slot
    std::optional<std::filesystem::path> preset;
    std::optional<std::filesystem::path> midiSettings;
    std::vector<std::string> settings;    // "parameter=value"
    std::vector<std::string> links;       // "parameter=controller"
    std::vector<std::string> automations; // "parameter=curve.csv"
    std::optional<std::filesystem::path> midi;
    double tempoBpm = 120.0; // until the MIDI file's first tempo
    VstInt32 blockFrames = 512;
    Precision precision = Precision::Float;
    double tailSeconds = 0.0;
};

/// Renders one file. Everything that can be found wrong beforehand is, before OUT is touched.
///
/// The plug-in gets the bank, the choice of a program, the program and the MIDI links of files,
/// then the settings and the links in their order, then the audio with curves and MIDI.
Result<RenderReport> render(const RenderRequest& request);

} // namespace pedl
