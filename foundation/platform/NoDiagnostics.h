#pragma once

#include "foundation/platform/DiagnosticStream.h"

namespace pedl {

/// Lets every line go. For those who have nobody to tell, or know that there is nothing to say.
class NoDiagnostics final : public DiagnosticStream {
public:
    void line(std::string_view) override {}
};

} // namespace pedl
