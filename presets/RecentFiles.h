#pragma once

#include "presets/StoredState.h"

#include <array>
#include <string>
#include <string_view>

namespace pedl {

class SettingsStore;

/// The folder of the file that was chosen last, and the last file of each kind: what a file dialog
/// starts with. Thread: user interface.
class RecentFiles {
public:
    /// Takes a chosen path apart behind its last '/'. A name alone leaves everything as it is.
    void remember(FileKind kind, std::string_view path);

    /// With the '/' at its end; empty before the first file.
    [[nodiscard]] const std::string& folder() const noexcept { return folder_; }
    [[nodiscard]] const std::string& name(FileKind kind) const noexcept {
        return names_[static_cast<std::size_t>(kind)];
    }

    /// From the settings; what is missing there is empty.
    void read(SettingsStore& settings);

    /// Into the settings; whether all of it is kept now.
    bool write(SettingsStore& settings) const;

private:
    std::string& nameOf(FileKind kind) noexcept { return names_[static_cast<std::size_t>(kind)]; }

    std::string folder_;
    std::array<std::string, kFileTypes.size()> names_; // in the order of `FileKind`
};

} // namespace pedl
