#pragma once

#include "vstgui/lib/platform/common/bufferedframe.h"
#include "vstgui/lib/platform/iplatformtextedit.h"

namespace VSTGUI {

/// Opens a text field for `callback` as the overlay of `frame`. One reference, the caller's.
IPlatformTextEdit* createFrameTextEdit(BufferedFrame& frame, IPlatformTextEditCallback* callback);

} // namespace VSTGUI
