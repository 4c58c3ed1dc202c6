#pragma once

#include <memory>

#include "vstgui/lib/platform/common/pixmansurface.h"

namespace pedl::skin {

/// All pictures of the skin with their numbers, each on the part of the face where it lies; of long
/// strips some frames. Pictures that look the same stand there once.
std::unique_ptr<VSTGUI::PixmanSurface> drawContactSheet(int scale);

} // namespace pedl::skin
