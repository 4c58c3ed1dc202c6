#pragma once

#include "foundation/platform/DiagnosticStream.h"

#include <string>
#include <string_view>
#include <vector>

namespace pedl::test {

/// Keeps what was reported.
struct LineList final : DiagnosticStream {
    void line(std::string_view text) override { lines.emplace_back(text); }
    std::vector<std::string> lines;
};

} // namespace pedl::test
