#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace pedl {

/// An open file of the system, closed at the end of scope; -1 is none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) noexcept : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    /// An error of closing says nothing new: what must last was brought to the disk before.
    ~FileDescriptor() {
        if (isOpen())
            ::close(number_);
    }

    [[nodiscard]] bool isOpen() const noexcept { return number_ >= 0; }
    [[nodiscard]] int number() const noexcept { return number_; }

private:
    int number_ = -1;
};

/// Interrupted calls are made again so often. A host's profiler may send a signal each millisecond;
/// a call that never gets through is given up, since whoever waits for it is a user.
constexpr int kMaxAttempts = 100;

/// Makes a system call, and makes it again where a signal has interrupted it.
template <typename Call> auto uninterrupted(Call call) {
    auto result = call();
    for (int attempt = 1; result == -1 && errno == EINTR && attempt < kMaxAttempts; ++attempt)
        result = call();
    return result;
}

} // namespace pedl
