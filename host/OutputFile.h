#pragma once

#include "foundation/platform/FileDescriptor.h"
#include "foundation/platform/NewFile.h"
#include "foundation/text/Result.h"
#include "host/ByteSink.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

namespace pedl {

/// A file that appears whole or not at all.
///
/// Bytes go into a new file in the folder of the wanted one; `commit` makes them safe on the disk
/// and puts them in its place. Without it the new file goes with the object, and whatever stood
/// under the wanted name is untouched. It has no name meanwhile, so nothing stays of it however the
/// process ends; where the file system has no such files, the next one for the same name removes
/// what a killed process has left. A link is followed: the file it leads to is replaced, and
/// keeps its permissions. A device (/dev/null) is written directly.
class OutputFile final : public ByteSink {
public:
    static Result<std::unique_ptr<OutputFile>> create(const std::filesystem::path& path);
    ~OutputFile() override;

    [[nodiscard]] bool canGoBack() const override { return true; }
    std::size_t write(const void* data, std::size_t bytes) override;
    [[nodiscard]] Done state() const override;
    /// Puts the file in its place.
    Done commit() override;

private:
    OutputFile(std::filesystem::path shown, std::filesystem::path target)
        : shown_(std::move(shown)), target_(std::move(target)) {}

    Done open();
    Done openNew(const struct stat* held);
    [[nodiscard]] Problem failed(int errorNumber) const;

    std::filesystem::path shown_;   // as the user named it
    std::filesystem::path target_;  // where the bytes end up
    FileDescriptor folder_;         // of `target_`
    std::string name_;              // in `folder_`
    std::unique_ptr<NewFile> file_; // null for a device
    FileDescriptor device_;
    int errorNumber_ = 0; // of the first write that failed
};

} // namespace pedl
