#pragma once

#include <atomic>

namespace pedl {

/// One value that one thread stores and another reads, without order between values: the machine
/// code of a plain store and load, and no data race.
///
/// Thread: any, real time.
template <typename T> class Relaxed {
public:
    constexpr Relaxed() noexcept = default;
    constexpr explicit Relaxed(T value) noexcept : value_(value) {}

    [[nodiscard]] T get() const noexcept { return value_.load(std::memory_order_relaxed); }
    void set(T value) noexcept { value_.store(value, std::memory_order_relaxed); }

    /// Reads the value and puts `value` in its place in one step.
    T exchange(T value) noexcept { return value_.exchange(value, std::memory_order_relaxed); }

    /// Puts `value` in the place of `expected`. False where the value is another one, which
    /// `expected` then holds, and at times for no reason: call it in a loop.
    bool replace(T& expected, T value) noexcept {
        return value_.compare_exchange_weak(expected, value, std::memory_order_relaxed);
    }

    /// Raises the value to `candidate` where that is larger. For one writer at a time: a reader
    /// that clears in between may lose this one peak, which is accepted.
    void raiseTo(T candidate) noexcept {
        if (candidate > get())
            set(candidate);
    }

private:
    static_assert(std::atomic<T>::is_always_lock_free);
    std::atomic<T> value_{};
};

} // namespace pedl
