#pragma once

#include "foundation/basics/Relaxed.h"
#include "parameters/BarTag.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace pedl {

/// Changes that came on another thread than the editor's, until its idle applies them. A change of
/// an index that is pending already takes its place.
///
/// Thread: `mark` any, real time; `take` the editor's.
class PendingChanges {
public:
    /// An index from 0; one beyond all tags is let pass.
    void mark(std::int32_t index, float value) noexcept {
        if (index < 0 || index >= kNumTags)
            return;
        values_[static_cast<std::size_t>(index)].set(value);
        words_[static_cast<std::size_t>(index) / kBits].fetch_or(bitOf(index),
                                                                 std::memory_order_release);
        isAny_.store(true, std::memory_order_release);
    }

    /// Hands each pending index with its latest value to `apply`, lowest first, once.
    template <typename Apply> void take(Apply apply) {
        if (!isAny_.exchange(false, std::memory_order_acquire))
            return;
        for (std::size_t word = 0; word < words_.size(); ++word) {
            std::uint64_t bits = words_[word].exchange(0, std::memory_order_acquire);
            for (std::size_t bit = 0; bits != 0; ++bit, bits >>= 1)
                if (bits & 1)
                    apply(static_cast<std::int32_t>(word * kBits + bit),
                          values_[word * kBits + bit].get());
        }
    }

    void clear() noexcept {
        take([](std::int32_t, float) {});
    }

private:
    static constexpr std::size_t kBits = 64;

    static std::uint64_t bitOf(std::int32_t index) {
        return std::uint64_t{1} << (static_cast<std::size_t>(index) % kBits);
    }

    std::array<std::atomic<std::uint64_t>, kNumTags / kBits + 1> words_{};
    std::array<Relaxed<float>, kNumTags> values_{};
    std::atomic<bool> isAny_{false};
};

} // namespace pedl
