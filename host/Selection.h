#pragma once

#include "foundation/text/NameMatch.h"
#include "foundation/text/Result.h"
#include "host/Plugin.h"

#include <string>
#include <string_view>
#include <vector>

namespace pedl {

/// A parameter and the value that the user wants it to have.
struct Setting {
    VstInt32 index = 0;
    float normalised = 0.0F;
};

/// A parameter and the rest of what the user wrote about it.
struct Assignment {
    VstInt32 index = 0;
    bool isByIndex = false; // "21=..." and not "Filter Cutoff=..."
    std::string value;
};

/// The plug-in's parameters under both their names, for `findByName`.
[[nodiscard]] std::vector<NamedItem> namedParameters(Plugin& plugin);

/// The unit of the numbers that a parameter shows, where its texts leave it out; else empty.
[[nodiscard]] std::string unitOf(Plugin& plugin, VstInt32 index);

/// The normalised value at which a parameter shows a text.
Result<float> valueReading(Plugin& plugin, VstInt32 index, std::string_view text);

/// Splits "parameter=value" and finds the parameter, by its index or by its name.
Result<Assignment> findAssignment(Plugin& plugin, std::string_view text);

/// What "parameter=value" asks for. A number after an index is the normalised value; everything
/// else is a text that the parameter shows.
Result<Setting> findSetting(Plugin& plugin, std::string_view text);

/// Links a parameter of our own plug-in to a MIDI controller, 0 to 119: "parameter=controller".
Done linkController(Plugin& plugin, std::string_view text);

/// Makes the program with this name or slot number current.
///
/// @return a line for the user where several have the name, else nothing
Result<std::string> selectProgram(Plugin& plugin, std::string_view nameOrSlot);

} // namespace pedl
