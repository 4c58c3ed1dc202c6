#pragma once

#include <string>
#include <vector>

namespace pedl {

/// The process's environment for a program that is no part of the host, "NAME=value" each: without
/// what the host or its bundle set for themselves, in UTF-8. Begins with `lines`.
/// Thread: any, while the host leaves its environment alone.
std::vector<std::string> environmentOfChild(std::vector<std::string> lines = {});

/// A `char*` each and a null at the end, as C takes the texts of a program. They point into
/// `texts`.
std::vector<char*> pointersTo(std::vector<std::string>& texts);

} // namespace pedl
