#pragma once

#include "host/ByteSink.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <sndfile.h>
#include <vector>

namespace pedl {

/// What libsndfile writes a sound file to: a sink, and before it, for sinks that cannot go back,
/// the head, which is held until it is right.
class EncoderTarget {
public:
    explicit EncoderTarget(std::unique_ptr<ByteSink> sink) : sink_(std::move(sink)) {}

    /// The functions by which the library reaches a target, given as its `user_data`.
    static SF_VIRTUAL_IO functions();

    /// From now on nothing goes out. To be called before anything is written.
    void holdHead() { head_.emplace(); }
    [[nodiscard]] bool holdsHead() const { return head_.has_value(); }
    /// What was written so far, up to where the target stands. From now on all goes to the sink.
    [[nodiscard]] std::vector<std::byte> takeHead();

    [[nodiscard]] ByteSink& sink() { return *sink_; }

private:
    static EncoderTarget& of(void* target) { return *static_cast<EncoderTarget*>(target); }

    [[nodiscard]] std::int64_t size() const;
    [[nodiscard]] std::int64_t place() const;
    std::int64_t seek(std::int64_t offset, int whence);
    std::size_t write(const void* data, std::size_t bytes);

    std::unique_ptr<ByteSink> sink_;
    std::optional<std::vector<std::byte>> head_;
    std::int64_t placeInHead_ = 0;
};

} // namespace pedl
