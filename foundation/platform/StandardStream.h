#pragma once

namespace pedl {

/// Stands for standard input or standard output in place of a file's path; "./-" is a file.
constexpr const char* kStandardStream = "-";

/// What messages call it.
constexpr const char* kStandardInput = "standard input";
constexpr const char* kStandardOutput = "standard output";

} // namespace pedl
