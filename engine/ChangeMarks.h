#pragma once

#include <atomic>

namespace pedl {

/// Which values have been set since what follows from them was last found.
///
/// A setter stores what it is given, then marks the group of results that depend on it. Whoever
/// uses a result takes the marks first and finds the marked groups anew from what is stored by
/// then. Setters that meet on two threads cannot leave a result that fits neither of them: a store
/// that came too late for one look has its mark at the next.
///
/// Threads: `mark` any, real time. `take` audio, real time, or another thread while no audio runs.
template <typename Group> class ChangeMarks {
public:
    /// Groups that were marked.
    class Taken {
    public:
        explicit Taken(unsigned marks) noexcept : marks_(marks) {}
        [[nodiscard]] bool has(Group group) const noexcept { return (marks_ & bit(group)) != 0; }

    private:
        unsigned marks_;
    };

    template <typename... Groups> void mark(Groups... groups) noexcept {
        marks_.fetch_or((bit(groups) | ...), std::memory_order_release);
    }

    /// The marks so far, which are then gone. Nearly always there are none: a plain load tells.
    [[nodiscard]] Taken take() noexcept {
        if (marks_.load(std::memory_order_relaxed) == 0)
            return Taken(0);
        return Taken(marks_.exchange(0, std::memory_order_acquire));
    }

private:
    [[nodiscard]] static constexpr unsigned bit(Group group) noexcept {
        return 1U << static_cast<unsigned>(group);
    }

    std::atomic<unsigned> marks_{0}; // raised by setters on any thread, taken by audio
};

} // namespace pedl
