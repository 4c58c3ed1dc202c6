#pragma once

#include "foundation/text/Result.h"
#include "host/Plugin.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pedl {

/// What the user wants a plug-in to hold before it is heard or seen.
struct StartingState {
    std::optional<std::filesystem::path> bank;
    std::optional<std::string> program; // name or slot
    std::optional<std::filesystem::path> preset;
    std::optional<std::filesystem::path> midiSettings;
    std::vector<std::string> settings; // "parameter=value"
    std::vector<std::string> links;    // "parameter=controller"
};

/// From now on, plug-ins of this process find nothing that the user has stored for them, and store
/// nothing: ours begins with the factory's programs.
void ignoreUserSettings();

/// Gives the plug-in the bank, the choice of a program, the program and the MIDI links of files,
/// then the settings and the links in their order.
///
/// @return what was repaired in the files, a line each
Result<std::vector<std::string>> applyStartingState(Plugin& plugin, const StartingState& wanted);

} // namespace pedl
