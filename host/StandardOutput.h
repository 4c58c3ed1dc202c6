#pragma once

#include "host/ByteSink.h"

#include <memory>

namespace pedl {

/// Standard output, for the bytes of a file: they go out as they come, so that what has gone stays
/// when something fails later. Led into a file, it can go back as far as where it began.
class StandardOutput final : public ByteSink {
public:
    static std::unique_ptr<ByteSink> create();

    [[nodiscard]] bool canGoBack() const override { return start_.has_value(); }
    std::size_t write(const void* data, std::size_t bytes) override;
    [[nodiscard]] Done state() const override;
    Done commit() override;

private:
    explicit StandardOutput(std::optional<std::int64_t> start) : start_(start) {}

    std::optional<std::int64_t> start_; // in the file; none in a pipe
    int errorNumber_ = 0;               // of the first write that failed
};

} // namespace pedl
