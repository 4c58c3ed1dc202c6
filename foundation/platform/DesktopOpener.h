#pragma once

#include "foundation/platform/DocumentOpener.h"

namespace pedl {

/// Asks the desktop, by its program `xdg-open`: without a shell, in a session of its own, with none
/// of the host's open files, signal settings or library paths.
class DesktopOpener final : public DocumentOpener {
public:
    bool open(const std::string& target) override;
};

} // namespace pedl
