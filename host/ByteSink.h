#pragma once

#include "foundation/text/Result.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace pedl {

/// Where the bytes of something that is written piece by piece go.
class ByteSink {
public:
    ByteSink() = default;
    virtual ~ByteSink() = default;
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;

    /// Whether what was written can be written again. Where not, writing it again does nothing.
    [[nodiscard]] virtual bool canGoBack() const = 0;

    /// Writes at the place where the sink stands. Once a write has failed, all others do.
    /// @return bytes written: all or, after a failure, 0
    virtual std::size_t write(const void* data, std::size_t bytes) = 0;

    void seek(std::int64_t placeBytes) { placeBytes_ = placeBytes; }
    [[nodiscard]] std::int64_t placeBytes() const { return placeBytes_; }
    [[nodiscard]] std::int64_t sizeBytes() const { return sizeBytes_; }

    /// Whether every write worked; otherwise a line that says why not.
    [[nodiscard]] virtual Done state() const = 0;

    /// The last call: what was written is complete.
    virtual Done commit() = 0;

protected:
    /// Writes all of it to an open file.
    /// @param at  the place in the file; none for one that has no places
    /// @return 0, or the `errno` of what went wrong
    static int writeWhole(int descriptor, const void* data, std::size_t bytes,
                          std::optional<std::int64_t> at);
    void moveOn(std::size_t bytes);

private:
    std::int64_t placeBytes_ = 0;
    std::int64_t sizeBytes_ = 0;
};

} // namespace pedl
