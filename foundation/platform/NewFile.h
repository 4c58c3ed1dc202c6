#pragma once

#include "foundation/platform/FileDescriptor.h"
#include "foundation/platform/FileProblem.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace pedl {

/// A new file that is not in place yet, beside the one that it will replace. Removed again at the
/// end of scope, unless it was put in place.
///
/// Its lock tells others that somebody is at work on it. Operations that can fail return what went
/// wrong, or nothing. Thread: one at a time; other processes may be at work on the same file.
class NewFile {
public:
    /// @param folder  open, and outlives this
    /// @param name    of the file that is to be replaced, without its folder; outlives this
    NewFile(const FileDescriptor& folder, std::string_view name) : folder_(folder), name_(name) {}
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Opens a file that nobody else can see. False where the file system has no such.
    bool openUnnamed(mode_t mode);

    /// Opens a file with a temporary name.
    std::optional<FileProblem> openNamed(mode_t mode);

    /// Writes all of it, in as many steps as the system takes; the size is the proof.
    std::optional<FileProblem> write(std::span<const std::byte> bytes);

    /// Takes over what the old file had. The mode comes last: a new owner takes bits from it.
    std::optional<FileProblem> resemble(const struct stat& old);

    std::optional<FileProblem> bringToDisk();

    /// The open file, for whoever writes it piece by piece.
    [[nodiscard]] int number() const { return file_.number(); }
    /// What it is called meanwhile; empty while it has no name.
    [[nodiscard]] const std::string& nameSoFar() const { return temporaryName_; }

    /// Gives an unnamed file a temporary name. False where that cannot be: /proc may be missing.
    bool giveName();

    /// Replaces the file.
    std::optional<FileProblem> putInPlace();

private:
    [[nodiscard]] bool lock() const;
    [[nodiscard]] bool isRemoved() const;

    const FileDescriptor& folder_;
    std::string_view name_;
    FileDescriptor file_;
    std::string temporaryName_;
};

/// Removes the files that killed processes left behind where they were replacing `name`. One that
/// somebody is still at work on stays.
void removeAbandonedFilesOf(const FileDescriptor& folder, std::string_view name);

} // namespace pedl
