#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "vstgui/lib/platform/common/pixmansurface.h"

namespace pedl::skin {

/// The PNG file `path`, a pixel a unit; null when it cannot be read.
/// @param paper  0xFFRRGGBB, shows where the file is transparent
std::unique_ptr<VSTGUI::PixmanSurface> readPng(const std::string& path, std::uint32_t paper);

} // namespace pedl::skin
