#pragma once

#include <string>
#include <utility>
#include <vector>

namespace pedl {

/// What a sound file says of itself: title, artist, copyright, ... by libsndfile's numbers.
using SoundTags = std::vector<std::pair<int, std::string>>;

} // namespace pedl
