#pragma once

#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

/// Opens a child of the X11 window whose number `parent` holds. Null without a display or parent.
IPlatformFrame* createX11Frame(IPlatformFrameCallback* callback, const CRect& size, void* parent);

} // namespace VSTGUI
