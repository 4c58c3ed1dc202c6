#pragma once

#include "vstgui/lib/crect.h"
#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

/// The area of the monitor that shows the point, in the screen's pixels; the whole screen where the
/// server knows of no monitors or none is there.
CRect monitorAround(const X11Connection& connection, const xcb_screen_t& screen,
                    const CPoint& point);

} // namespace VSTGUI
