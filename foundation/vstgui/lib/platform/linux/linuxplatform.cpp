#include "vstgui/lib/platform/linux/displayscale.h"
#include "vstgui/lib/platform/linux/filedialogs.h"
#include "vstgui/lib/platform/linux/x11frame.h"
#include "vstgui/lib/platform/systemplatform.h"

namespace VSTGUI {

constinit const SystemPlatform kSystemPlatform{createX11Frame, displayScaleFactor,
                                               createSystemFileDialog};

} // namespace VSTGUI
