#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace pedl::test {

/// Stored data written field by field, in either byte order, independently of the code under test.
///
/// The numbers are the tables of docs/stored-formats.md as they stand there.
class StoredBytes {
public:
    enum class Order { Little, Big };

    explicit StoredBytes(Order order = Order::Little) : order_(order) {}

    StoredBytes& byte(unsigned value) {
        bytes_.push_back(static_cast<std::byte>(value));
        return *this;
    }
    StoredBytes& word(std::uint32_t value) {
        for (unsigned i = 0; i < 4; ++i)
            byte(value >> (order_ == Order::Little ? 8 * i : 24 - 8 * i) & 0xFFU);
        return *this;
    }
    StoredBytes& real(float value) { return word(std::bit_cast<std::uint32_t>(value)); }
    StoredBytes& zeros(std::size_t count) {
        bytes_.insert(bytes_.end(), count, std::byte{0});
        return *this;
    }
    /// Exactly 24 bytes: cut or filled up with zeros.
    StoredBytes& name(std::string_view text) {
        for (std::size_t i = 0; i < 24; ++i)
            byte(i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
        return *this;
    }

    // Parts of streams

    StoredBytes& id() { return word(0x5A4D7046); }

    struct Header {
        unsigned kind = 56;
        std::uint32_t records = 0, slot = 0, recordBytes = 0, channelMark = 13;
    };
    /// The identifier of a stream is never reversed within a chunk, but it does not matter there.
    StoredBytes& header(const Header& header) {
        return id()
            .byte(header.kind)
            .word(0x01000000)
            .word(56)
            .word(header.records)
            .word(header.slot)
            .word(header.recordBytes)
            .word(header.channelMark)
            .zeros(4 + 8);
    }
    StoredBytes& programHead(std::uint32_t slot, std::string_view text) {
        return word(0).word(156).word(slot).name(text).zeros(132);
    }
    StoredBytes& value(std::uint32_t slot, std::uint32_t parameter, float value) {
        return word(1).word(20).word(slot).word(parameter).zeros(8).real(value).zeros(4);
    }
    StoredBytes& link(std::uint32_t parameter, float value, float channel) {
        return word(2).word(20).word(0).word(parameter).zeros(8).real(value).real(channel);
    }

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] std::span<const std::byte> view() const { return bytes_; }
    [[nodiscard]] std::vector<std::byte>& bytes() { return bytes_; }

private:
    Order order_;
    std::vector<std::byte> bytes_;
};

} // namespace pedl::test
