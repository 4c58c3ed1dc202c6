#pragma once

#include "host/MidiFile.h"
#include "host/RenderCommand.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pedl {

/// A render with everything that it needs, but for its output.
struct RenderJob {
    RenderRequest request;
    AudioReader reader;
    AudioFormat format;             ///< of the output
    std::unique_ptr<Plugin> plugin; ///< as the sound is to find it
    std::vector<Automation> curves;
    std::optional<MidiFile> midi;
    std::vector<std::string> warnings; ///< so far, a line each
};

/// Opens what is read and gives the plug-in its starting state: whatever can be found wrong before
/// there is sound, is. Thread: any, several at once with our own plug-in.
Result<RenderJob> prepareRender(const RenderRequest& request);

/// Runs it, once. Thread: one at a time, while an `Interrupt` lives.
Result<RenderReport> runRender(RenderJob& job);

} // namespace pedl
