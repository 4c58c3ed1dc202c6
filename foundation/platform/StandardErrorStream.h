#pragma once

#include "foundation/platform/DiagnosticStream.h"

namespace pedl {

/// The process's standard error stream. Has no state: any number of them may be made.
///
/// Each line goes out in one write, so lines of several instances do not mix. A line that cannot
/// be written (the stream is closed or full) is dropped. Thread: any but audio.
class StandardErrorStream final : public DiagnosticStream {
public:
    void line(std::string_view text) override;
};

} // namespace pedl
