#include "presets/ByteReader.h"

#include <bit>
#include <cassert>
#include <cstring>

namespace pedl {

std::optional<std::span<const std::byte>> ByteReader::take(std::size_t count) noexcept {
    if (count > rest_.size())
        return std::nullopt;
    const auto taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
}

std::optional<std::uint8_t> ByteReader::takeByte() noexcept {
    const auto taken = take(1);
    return taken ? std::optional(std::to_integer<std::uint8_t>(taken->front())) : std::nullopt;
}

std::optional<std::uint32_t> ByteReader::takeWord() noexcept {
    const auto taken = take(sizeof(std::uint32_t));
    return taken ? std::optional(wordAt(*taken, 0, order_)) : std::nullopt;
}

std::optional<float> ByteReader::takeFloat() noexcept {
    const auto taken = take(sizeof(float));
    return taken ? std::optional(floatAt(*taken, 0, order_)) : std::nullopt;
}

std::uint32_t wordAt(std::span<const std::byte> bytes, std::size_t offset,
                     ByteOrder order) noexcept {
    std::uint32_t word = 0;
    assert(offset <= bytes.size() && sizeof word <= bytes.size() - offset &&
           "caller knows the word to be there");
    std::memcpy(&word, bytes.data() + offset, sizeof word);
    return inOrder(word, order);
}

float floatAt(std::span<const std::byte> bytes, std::size_t offset, ByteOrder order) noexcept {
    return std::bit_cast<float>(wordAt(bytes, offset, order));
}

} // namespace pedl
