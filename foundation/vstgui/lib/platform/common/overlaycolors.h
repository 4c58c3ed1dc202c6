#pragma once

#include "vstgui/lib/ccolor.h"

namespace VSTGUI {

/// What the layer draws over an editor without asking it: menus, the file list, the selection in a
/// text field.
namespace OverlayColors {
constexpr CColor kPanel(44, 44, 42, 255);
constexpr CColor kList(30, 30, 28, 255);
constexpr CColor kFrame(110, 110, 104, 255);
constexpr CColor kText(228, 228, 222, 255);
constexpr CColor kTitle(170, 170, 150, 255);
constexpr CColor kDisabled(130, 130, 126, 255);
constexpr CColor kSelection(70, 110, 170, 255);
constexpr CColor kSelectedText(255, 255, 255, 255);
constexpr CColor kWarning(240, 190, 90, 255);
} // namespace OverlayColors

} // namespace VSTGUI
