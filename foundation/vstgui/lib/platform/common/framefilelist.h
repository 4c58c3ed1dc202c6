#pragma once

#include <memory>

#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace VSTGUI {

/// A file dialog drawn in the frame, as its modal view: for machines without any other.
///
/// A directory's folders and the files of the types asked for, hidden ones left out; Up, Cancel, a
/// field for the name when saving. One file at a time. Saving under a name that is taken asks for a
/// second press.
std::unique_ptr<FileDialogBackend> createFrameFileList();

} // namespace VSTGUI
