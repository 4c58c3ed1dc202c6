#pragma once

#include <cstdint>
#include <optional>

namespace pedl {

/// How the 32-bit fields of stored data lie: as written here, or byte by byte the other way round,
/// as the big-endian machines of old wrote them.
enum class ByteOrder { Native, Reversed };

[[nodiscard]] constexpr ByteOrder inverted(ByteOrder order) noexcept {
    return order == ByteOrder::Native ? ByteOrder::Reversed : ByteOrder::Native;
}

[[nodiscard]] constexpr std::uint32_t reversed(std::uint32_t word) noexcept {
    return word >> 24 | (word >> 8 & 0x0000FF00U) | (word << 8 & 0x00FF0000U) | word << 24;
}

/// A stored word as a number.
[[nodiscard]] constexpr std::uint32_t inOrder(std::uint32_t word, ByteOrder order) noexcept {
    return order == ByteOrder::Native ? word : reversed(word);
}

/// The order of data whose identifier field reads `id`; nothing for data of another plug-in.
[[nodiscard]] std::optional<ByteOrder> byteOrderOf(std::uint32_t id) noexcept;

} // namespace pedl
