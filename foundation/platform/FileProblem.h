#pragma once

#include <string>

namespace pedl {

/// Why a file could not be read or written: the system's call and its error number.
struct FileProblem {
    const char* call = ""; ///< name of a system call or of a check of ours, a literal
    int number = 0;        ///< an `errno` value; 0 where the check is ours
    bool isDone = false;   ///< what was asked for is done, yet may not outlive a loss of power

    /// "fsync: No space left on device", or the check's own text.
    [[nodiscard]] std::string text() const;
};

/// What the system call of this name has just failed with.
[[nodiscard]] FileProblem failed(const char* call) noexcept;

} // namespace pedl
