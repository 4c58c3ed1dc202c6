#pragma once

#include "presets/ByteOrder.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace pedl {

/// Takes fields from the front of stored data and ends where the bytes end.
///
/// Holds a view of the data; copies nothing. Thread: any.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::byte> bytes,
                        ByteOrder order = ByteOrder::Native) noexcept
        : rest_(bytes), order_(order) {}

    [[nodiscard]] std::span<const std::byte> rest() const noexcept { return rest_; }

    /// The next `count` bytes, or nothing and no step where fewer are left.
    [[nodiscard]] std::optional<std::span<const std::byte>> take(std::size_t count) noexcept;

    [[nodiscard]] std::optional<std::uint8_t> takeByte() noexcept;
    [[nodiscard]] std::optional<std::uint32_t> takeWord() noexcept;
    [[nodiscard]] std::optional<float> takeFloat() noexcept;

private:
    std::span<const std::byte> rest_;
    ByteOrder order_;
};

/// The word at `offset` of `bytes`, which the caller knows to hold it.
[[nodiscard]] std::uint32_t wordAt(std::span<const std::byte> bytes, std::size_t offset,
                                   ByteOrder order) noexcept;

/// The float at `offset` of `bytes`, which the caller knows to hold it.
[[nodiscard]] float floatAt(std::span<const std::byte> bytes, std::size_t offset,
                            ByteOrder order) noexcept;

} // namespace pedl
