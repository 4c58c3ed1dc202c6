#pragma once

#include <string>
#include <vector>

namespace pedl {

// What the command tells, and the exit statuses that go with it. Texts are made printable.

constexpr int kFailed = 1;
/// Of a program that was used wrongly.
constexpr int kWrongUse = 2;

/// A line on standard error.
void say(const std::string& text);
void warn(const std::string& text);

/// A line for each warning about a file. Damage can be long-winded: after the first lines their
/// number will do.
void warn(const std::string& path, const std::vector<std::string>& lines);

/// Says what went wrong.
/// @return `status`
int fail(const std::string& text, int status = kFailed);

/// Writes to standard output; a full disk or a closed pipe there is a failure too.
/// @return the exit status
int print(const std::string& text);

} // namespace pedl
