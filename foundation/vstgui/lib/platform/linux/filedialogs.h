#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace VSTGUI {

/// The dialogs of the system in the order in which they are tried, null behind the last. A
/// `FileDialogFactory`.
///
/// First the desktop's portal, which fits every desktop and works from within a sandbox; then the
/// programs `zenity` and `kdialog`, on KDE the other way round.
std::unique_ptr<FileDialogBackend> createSystemFileDialog(int32_t index);

// For the dialogs themselves

/// One that ended sooner without a choice was never seen: there is no display for it, a part of it
/// is missing, it crashed. Nobody cancels that quickly.
constexpr uint64_t kUnseenMs = 500;

/// "*.zmt", "*.ZMT": as the extension is given, and in small and capital letters.
std::vector<std::string> filePatterns(const FileDialogRequest::FileType& type);

} // namespace VSTGUI
