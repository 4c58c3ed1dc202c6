#pragma once

#include <memory>
#include <string_view>

#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace VSTGUI {

/// A file dialog that is a program of its own.
struct DialogProgram;

/// Of the GNOME desktop and the ones around it, and of KDE.
extern const DialogProgram kZenity, kKDialog;

std::unique_ptr<FileDialogBackend> createProgramFileDialog(const DialogProgram& program);

} // namespace VSTGUI
