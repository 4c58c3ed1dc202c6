#pragma once

#include <filesystem>
#include <optional>

namespace pedl::demo {

/// What the demonstration is made of, and where it goes.
struct TourRequest {
    std::filesystem::path command;  ///< zmt-pedlfilter
    std::filesystem::path settings; ///< the table; its curves lie in "curves" beside it
    std::filesystem::path material; ///< a folder
    std::filesystem::path output;   ///< a folder
    std::filesystem::path ownInput; ///< in place of the material, empty for none
    std::optional<double> tempoBpm; ///< of that sound
};

/// Renders a sound through every setting of the table, prints the levels, draws a picture of each
/// and writes the page on which all of it is heard and seen.
///
/// A sound of the user's own gives its name to all that is made from it. Curves are stretched to
/// its length; what goes with the beat is left out unless its tempo is known.
///
/// Throws std::runtime_error with the reason.
void takeTour(const TourRequest& request);

} // namespace pedl::demo
