#pragma once

#include <memory>
#include <string>

#include "vstgui/lib/platform/common/pixmansurface.h"

namespace pedl::skin {

/// Two PNG files beside each other; null when one cannot be read.
std::unique_ptr<VSTGUI::PixmanSurface> sideBySide(const std::string& leftPath,
                                                  const std::string& rightPath);

} // namespace pedl::skin
