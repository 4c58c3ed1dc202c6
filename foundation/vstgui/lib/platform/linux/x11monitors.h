#pragma once

#include "vstgui/lib/crect.h"
#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// The area of the monitor that shows the point, in the screen's pixels; the whole screen where the
/// server knows of no monitors or none is there.
///
/// Asks by RandR's request 42 alone, written out here: a library more is not worth it.
CRect monitorAround(const X11Connection& connection, const xcb_screen_t& screen,
                    const CPoint& point);

} // namespace VSTGUI
