#pragma once

#include "vstgui/lib/platform/iplatformoptionmenu.h"

namespace VSTGUI {

class OffscreenFrame;

/// A menu that draws into an image of its own and takes its choice from the test. One reference,
/// the caller's.
IPlatformOptionMenu* createOffscreenOptionMenu(OffscreenFrame& frame);

} // namespace VSTGUI
