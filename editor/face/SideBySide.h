#pragma once

#include <memory>
#include <string>

#include "vstgui/lib/platform/common/pixmansurface.h"

namespace pedl::skin {

/// The PNG file `left` and the picture `right` beside each other; null when the file cannot be
/// read.
std::unique_ptr<VSTGUI::PixmanSurface> sideBySide(const std::string& left,
                                                  const VSTGUI::PixmanSurface& right);

} // namespace pedl::skin
