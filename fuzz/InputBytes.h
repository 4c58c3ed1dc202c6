#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

namespace pedl::fuzz {

/// Takes a fuzz target's input apart from its front, so that inputs can be written by hand.
///
/// Integers are little-endian. Behind the end there are only zeros.
class InputBytes {
public:
    InputBytes(const std::uint8_t* data, std::size_t sizeBytes) : rest_(data, sizeBytes) {}

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }

    [[nodiscard]] std::uint8_t byte() {
        if (rest_.empty())
            return 0;
        const std::uint8_t first = rest_.front();
        rest_ = rest_.subspan(1);
        return first;
    }

    [[nodiscard]] std::int32_t int32() { return static_cast<std::int32_t>(word()); }

    /// Any float at all, NaN and infinity included.
    [[nodiscard]] float float32() { return std::bit_cast<float>(word()); }

private:
    [[nodiscard]] std::uint32_t word() {
        std::uint32_t value = 0;
        for (unsigned shift = 0; shift < 32; shift += 8)
            value |= std::uint32_t{byte()} << shift;
        return value;
    }

    std::span<const std::uint8_t> rest_;
};

} // namespace pedl::fuzz
