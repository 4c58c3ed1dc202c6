#pragma once

#include "host/Plugin.h"

#include <string>

namespace pedl {

/// How a listing is written: aligned columns for people, JSON for programs.
enum class ListingForm { Text, Json };

/// Slot and name of every program that has `part` in its name, whatever the case.
[[nodiscard]] std::string programListing(Plugin& plugin, ListingForm form,
                                         const std::string& part = {});

/// Index, names, value and display text of every parameter.
[[nodiscard]] std::string parameterListing(Plugin& plugin, ListingForm form);

/// Everything that the plug-in declares about itself.
[[nodiscard]] std::string infoListing(Plugin& plugin, const std::string& path, ListingForm form);

} // namespace pedl
