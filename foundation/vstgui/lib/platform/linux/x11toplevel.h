#pragma once

#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// The window around `window` that the window manager knows, which dialogs are kept above: the
/// nearest that it has marked, without such a manager the outermost. `window` itself when the
/// server does not answer.
xcb_window_t topLevelAround(const X11Connection& connection, xcb_window_t window);

} // namespace VSTGUI
