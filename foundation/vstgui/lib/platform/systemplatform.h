#pragma once

#include "vstgui/lib/platform/common/filedialogbackend.h"
#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

/// What the system underneath hands in: its windows and its dialogs.
///
/// The system's folder defines the one object. Nothing registers itself, so nothing runs when the
/// library is loaded, and a program without a system does not link.
struct SystemPlatform {
    PlatformFrameFactory createFrame; // at `scaleFactor`
    double (*scaleFactor)();
    FileDialogFactory createFileDialog;
};

extern const SystemPlatform kSystemPlatform;

} // namespace VSTGUI
