#pragma once

#include "vstgui/lib/controls/ccontrol.h"

namespace VSTGUI {

// What the controls do alike whose background is a strip of pictures, one below the other.

/// The nearest of `count` positions to the control's value, 0 to `count` - 1.
int32_t nearestPosition(const CControl& control, int32_t count);

/// Draws the part of the background that begins at `source`; the control is clean then.
void drawPicture(CDrawContext* context, CControl& control, const CPoint& source);

/// Gives the control the size of one picture, its top left corner kept.
/// @return false when it has no background
bool fitToPicture(CControl& control, CCoord pictureHeight);

} // namespace VSTGUI
