#pragma once

#include "foundation/platform/DiagnosticStream.h"
#include "foundation/platform/FileProblem.h"
#include "presets/RecentFiles.h"
#include "presets/StoredState.h"

#include <optional>
#include <string>
#include <string_view>

namespace pedl {

/// Loads and saves program, bank and MIDI-settings files.
///
/// A path is used as it is given: the process's working directory is the host's and stays. What
/// could not be read or written, or was read and is something else, changes nothing and is said in
/// the diagnostic stream.
///
/// Thread: user interface.
class PresetFiles {
public:
    /// All of them outlive this.
    PresetFiles(StoredState& state, RecentFiles& recent, DiagnosticStream& diagnostics) noexcept
        : state_(state), recent_(recent), diagnostics_(diagnostics) {}

    LoadResult load(FileKind kind, const std::string& path,
                    OrderDecision decision = OrderDecision::AsFound);

    /// Replaces the file whole or leaves it as it is.
    ///
    /// @return nothing, or what went wrong
    std::optional<FileProblem> save(FileKind kind, const std::string& path);

private:
    void say(const std::string& path, std::string_view what, const FileProblem& problem);

    StoredState& state_;
    RecentFiles& recent_;
    DiagnosticStream& diagnostics_;
};

} // namespace pedl
