#pragma once

#include "foundation/platform/DiagnosticStream.h"
#include "foundation/platform/FileProblem.h"
#include "foundation/platform/SettingsStore.h"

#include <optional>
#include <string>

namespace pedl {

/// The user's settings as files: one a value, named as the value, holding the value's bytes.
///
/// The folder and its files are their owner's alone; the folder is made when the first value is
/// written. A value is replaced at once, so that another process reads the old bytes or the new
/// ones. What fails leaves the value as it was and puts one line into the diagnostic stream.
///
/// Whole paths are used throughout: the host's working directory stays as it is.
class FileSettingsStore final : public SettingsStore {
public:
    /// @param folder       without '/' at its end; nothing where the user has none: then there are
    ///                     no values, and writing fails
    /// @param diagnostics  outlives the store
    FileSettingsStore(std::optional<std::string> folder, DiagnosticStream& diagnostics);

    [[nodiscard]] std::optional<std::vector<std::byte>> read(std::string_view name) override;
    bool write(std::string_view name, std::span<const std::byte> bytes) override;
    bool erase(std::string_view name) override;

private:
    [[nodiscard]] std::string pathOf(std::string_view name) const;
    void complain(std::string_view name, std::string_view what, const std::string& why);
    bool isDone(std::string_view name, const std::optional<FileProblem>& problem,
                std::string_view whatIfNot);

    std::optional<std::string> folder_;
    DiagnosticStream& diagnostics_;
};

/// Where the settings of this user are: `ZMT-sonics/ZMTpedlFilter` in the user's configuration
/// folder, which is `$XDG_CONFIG_HOME`, else `~/.config`.
///
/// A variable that is empty or not a whole path counts as unset. Without `$HOME` the user database
/// is asked. Nothing where that has no folder either.
///
/// Reads the environment: to be called once, while the host lets no other thread change it.
[[nodiscard]] std::optional<std::string> userSettingsFolder();

} // namespace pedl
