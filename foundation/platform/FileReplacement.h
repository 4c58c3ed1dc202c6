#pragma once

#include "foundation/platform/FileProblem.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <sys/types.h>

namespace pedl {

/// Who may read and write a file that was not there before; the process's mask takes from it.
constexpr mode_t kForEveryone = 0666;
constexpr mode_t kForTheOwner = 0600;

/// Puts `bytes` in place of the file at `path`, all of them or none.
///
/// The bytes go into a new file beside the old one, to the disk, and only then under its name: a
/// reader, and a process that is killed or loses power at any moment, finds the old file or the
/// new one. The old file's mode is kept, its owner and group where the system allows; extended
/// attributes and further hard links stay with the old one. Behind a symbolic link the file that
/// it leads to is replaced. What is not a file, and a file that is protected from writing, is left
/// alone.
///
/// The new file has no name until it is whole, where the file system can do that. A named one that
/// a killed process left behind is removed by the next replacement of the same file, and told from
/// one that is being written by its lock.
///
/// @param newFileMode  of a file that was not there before
/// @return             nothing, or why the old file stays as it is; or, marked as done, why the
///                     new one may not outlive a loss of power
///
/// Thread: any but audio; several processes may replace the same file at the same time.
[[nodiscard]] std::optional<FileProblem>
replaceFile(const std::string& path, std::span<const std::byte> bytes, mode_t newFileMode);

/// Removes a file or a symbolic link, and has the folder note it on the disk. Nothing to do where
/// none is there. Thread: any but audio.
[[nodiscard]] std::optional<FileProblem> removeFile(const std::string& path);

/// Makes a folder that only its owner may enter, and those above it that are missing.
[[nodiscard]] std::optional<FileProblem> makePrivateFolder(const std::string& path);

} // namespace pedl
