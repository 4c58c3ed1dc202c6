#pragma once

#include "vstgui/lib/controls/ccontrol.h"

/// Sliders of the editor are controls of its own. What they share with the toolkit's is the style:
/// `kHorizontal` or `kVertical`, and `kLeft`, `kRight`, `kTop`, `kBottom` for the end at which the
/// least value stands.
