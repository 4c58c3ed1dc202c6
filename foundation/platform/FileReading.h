#pragma once

#include "foundation/platform/FileProblem.h"

#include <cstddef>
#include <string>
#include <vector>

namespace pedl {

/// A file larger than this is not one of ours: the largest that we write has 274441 bytes.
constexpr std::size_t kMaxFileBytes = std::size_t{1} << 20;

enum class ReadResult {
    Read,
    Missing,
    NotAFile, ///< a folder, a pipe, a device
    TooLarge, ///< more than the limit
    Unreadable,
};

struct FileContents {
    ReadResult result = ReadResult::Unreadable;
    std::vector<std::byte> bytes; ///< whole where `result` is `Read`, else empty
    FileProblem problem;          ///< what to tell where `result` is not `Read`
};

/// How much is read at most, and what is said of a larger file.
struct ReadLimit {
    std::size_t bytes;
    const char* refusal; ///< a literal
};
constexpr ReadLimit kStoredFileLimit{kMaxFileBytes, "larger than 1 MiB"};

/// Reads a file whole, in bounded time and memory whatever stands at `path`.
///
/// Only a regular file that is not too large is read at all; opening a pipe does not wait for a
/// writer. A file that grows meanwhile beyond the limit is too large. Thread: any but audio.
[[nodiscard]] FileContents readFile(const std::string& path, ReadLimit limit = kStoredFileLimit);

/// Reads what comes through standard input to its end, at most to the limit.
[[nodiscard]] FileContents readStandardInput(ReadLimit limit);

/// Whether there is something at `path` that may be read. Thread: any but audio.
[[nodiscard]] bool canRead(const std::string& path);

} // namespace pedl
