#pragma once

#include <memory>
#include <string>

#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace VSTGUI {

/// The file dialog of the desktop, shown by its portal (`org.freedesktop.portal.FileChooser`, on
/// the session's D-Bus).
///
/// Everything is sent and received at `poll`, on a connection of its own; no thread. A bus or a
/// portal that does not answer in time counts as none.
std::unique_ptr<FileDialogBackend> createPortalFileDialog();

/// The addresses of the session's bus among which one can be connected to without waiting: its
/// sockets on this machine. Empty where there is none.
std::string sessionBusAddresses();

/// The path of a "file:" URI of this machine; empty for all others. The bytes are the name's, in
/// whatever encoding.
std::string pathFromUri(const std::string& uri);

} // namespace VSTGUI
