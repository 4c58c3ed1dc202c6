#pragma once

#include <string_view>

namespace pedl {

/// Where the effect reports what it did or repaired, one line a message. Tests pass a recorder.
class DiagnosticStream {
public:
    virtual ~DiagnosticStream() = default;

    /// Writes `text` and a line end. Thread: any but audio.
    virtual void line(std::string_view text) = 0;
};

} // namespace pedl
