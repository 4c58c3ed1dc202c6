#pragma once

#include "host/RenderJob.h"

#include <optional>
#include <string>
#include <vector>

namespace pedl {

// What is likely not what the user meant, a line each.

/// What is known before the sound runs.
[[nodiscard]] std::vector<std::string> remarksBefore(Plugin& plugin, const RenderRequest& request,
                                                     const AudioReader& reader,
                                                     const std::vector<Automation>& curves,
                                                     const std::optional<MidiFile>& midi);

/// What the render itself brought to light, into the report's warnings.
void addRemarks(const AudioReader& reader, RenderReport& report);

} // namespace pedl
