#pragma once

#include <string>

namespace VSTGUI {

class PixmanSurface;

/// Saves a surface as a PNG file with alpha. For tests and pictures: a library of its own, so that
/// the plug-in does without libpng.
/// @return false when the surface has no pixels or the file cannot be written whole
[[nodiscard]] bool writePng(const PixmanSurface& surface, const std::string& path);

} // namespace VSTGUI
