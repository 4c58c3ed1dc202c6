#pragma once

#include "foundation/text/Result.h"
#include "host/Renderer.h"
#include "host/StartingState.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pedl {

/// A tail that waits for silence waits no longer.
constexpr double kLongestTailSeconds = 60.0;

/// What `zmt-pedlfilter render` was asked for, numbers in range already.
struct RenderRequest {
    std::filesystem::path in;          // "-" is standard input
    std::filesystem::path out;         // "-" is standard output
    std::optional<AudioFormat> format; // of `out`; nothing: what its ending says
    std::string bits;                  // another form of its samples; empty: the format's own
    bool keepsExisting = false;        // a file that stands at `out` already
    std::filesystem::path plugin;
    StartingState start;
    std::vector<std::string> automations; // "parameter=curve.csv"
    std::optional<std::filesystem::path> midi;
    double tempoBpm = 120.0; // until the MIDI file's first tempo
    VstInt32 blockFrames = 512;
    Precision precision = Precision::Float;
    double tailSeconds = 0.0;
    bool tailEndsInSilence = false; // or when its seconds are over
    bool isStrict = false;          // what is worth a warning is an error, and OUT stays as it is
    bool isQuiet = false;           // nothing is shown of how far it is
};

/// Renders one file. Everything that can be found wrong beforehand is, before OUT is touched.
///
/// The plug-in gets its starting state, then the audio with curves and MIDI.
Result<RenderReport> render(const RenderRequest& request);

/// Renders one after the other, each with an instance of its own, and tells how each went; one that
/// fails does not keep the others from it, an end signal does. The plug-in is the same for all, and
/// better loaded already.
using RenderListener = std::function<void(const RenderRequest&, const Result<RenderReport>&)>;
void renderAll(const std::vector<RenderRequest>& requests, const RenderListener& listener);

} // namespace pedl
