#pragma once

#include <memory>

#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace VSTGUI {

/// The dialogs of the system in the order in which they are tried, null behind the last. A
/// `FileDialogFactory`.
std::unique_ptr<FileDialogBackend> createSystemFileDialog(int32_t index);

} // namespace VSTGUI
