#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pedl::skin {

/// How likely a bit of one kind is to be 0: learnt from the bits of that kind that came before.
///
/// The two directions of the coder below change it alike, so that they never differ.
class BitOdds {
public:
    static constexpr int kBits = 12; // of a probability
    static constexpr std::uint32_t kOne = 1U << kBits;

    [[nodiscard]] std::uint32_t ofZero() const { return ofZero_; }

    void learn(bool bit) {
        // A 32nd of the way: fast enough for the first pixels of a frame, calm enough for noise.
        // Neither bit becomes impossible: it stops 31 short of both ends.
        constexpr int kSlowness = 5;
        if (bit)
            ofZero_ = static_cast<std::uint16_t>(ofZero_ - (ofZero_ >> kSlowness));
        else
            ofZero_ = static_cast<std::uint16_t>(ofZero_ + ((kOne - ofZero_) >> kSlowness));
    }

    // A byte that the odds begin with, stored with a picture.
    static constexpr int kStoredShift = kBits - 8;
    [[nodiscard]] std::uint8_t stored() const {
        const std::uint32_t byte = ofZero_ >> kStoredShift;
        return static_cast<std::uint8_t>(byte == 0 ? 1 : byte);
    }
    void restore(std::uint8_t byte) {
        ofZero_ = static_cast<std::uint16_t>(std::uint32_t{byte} << kStoredShift);
    }

private:
    std::uint16_t ofZero_ = kOne / 2;
};

/// Writes bits in as many bits as they are surprising (a binary arithmetic coder).
class BitWriter {
public:
    static constexpr bool kWrites = true;

    /// @return `bit`
    [[gnu::always_inline]] bool code(BitOdds& odds, bool bit) {
        const std::uint32_t bound = (range_ >> BitOdds::kBits) * odds.ofZero();
        if (bit) {
            low_ += bound;
            range_ -= bound;
        } else {
            range_ = bound;
        }
        odds.learn(bit);
        if (range_ < kSmallest) { // once is enough: see BitOdds
            range_ <<= 8;
            shiftOut();
        }
        return bit;
    }

    /// The bytes of all bits; the writer is used up.
    [[nodiscard]] std::vector<std::uint8_t> finish() {
        for (int i = 0; i < kRegisterBytes; ++i)
            shiftOut();
        // The reader takes nothing but zeroes beyond the end, so they need no place.
        while (!bytes_.empty() && bytes_.back() == 0)
            bytes_.pop_back();
        return std::move(bytes_);
    }

private:
    static constexpr std::uint32_t kSmallest = 1U << 24;
    static constexpr int kRegisterBytes = 5;

    /// The uppermost byte goes out, unless a carry may still reach it.
    void shiftOut() {
        if (low_ < 0xFF000000U || low_ > UINT32_MAX) {
            const auto carry = static_cast<std::uint8_t>(low_ >> 32);
            if (!isFirst_)
                bytes_.push_back(static_cast<std::uint8_t>(held_ + carry));
            for (; waiting_ > 0; --waiting_)
                bytes_.push_back(static_cast<std::uint8_t>(0xFF + carry));
            isFirst_ = false;
            held_ = static_cast<std::uint8_t>(low_ >> 24);
        } else {
            ++waiting_;
        }
        low_ = (low_ << 8) & UINT32_MAX;
    }

    std::uint64_t low_ = 0;
    std::uint32_t range_ = UINT32_MAX;
    std::uint8_t held_ = 0;   // the last byte that a carry could change
    std::size_t waiting_ = 0; // bytes of ones behind it
    bool isFirst_ = true;
    std::vector<std::uint8_t> bytes_;
};

/// Reads what `BitWriter` wrote. Beyond the end there are zeroes.
class BitReader {
public:
    static constexpr bool kWrites = false;

    explicit BitReader(std::span<const std::uint8_t> bytes)
        : next_(bytes.data()), end_(bytes.data() + bytes.size()) {
        for (int i = 0; i < 4; ++i)
            code_ = code_ << 8 | nextByte();
    }

    [[gnu::always_inline]] bool code(BitOdds& odds, bool /*bit*/ = false) {
        const std::uint32_t bound = (range_ >> BitOdds::kBits) * odds.ofZero();
        const bool bit = code_ >= bound;
        if (bit) {
            code_ -= bound;
            range_ -= bound;
        } else {
            range_ = bound;
        }
        odds.learn(bit);
        if (range_ < kSmallest) {
            range_ <<= 8;
            code_ = code_ << 8 | nextByte();
        }
        return bit;
    }

private:
    static constexpr std::uint32_t kSmallest = 1U << 24;

    std::uint32_t nextByte() { return next_ < end_ ? *next_++ : 0; }

    const std::uint8_t* next_;
    const std::uint8_t* end_;
    std::uint32_t range_ = UINT32_MAX;
    std::uint32_t code_ = 0;
};

} // namespace pedl::skin
