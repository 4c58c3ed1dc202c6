#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <span>
#include <sys/mman.h>
#include <unistd.h>

namespace pedl::test {

/// A copy of some bytes that ends where the address space does: who reads one more, dies.
class GuardedBytes {
public:
    explicit GuardedBytes(std::span<const std::byte> bytes) : size_(bytes.size()) {
        const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        const std::size_t readable = (size_ / page + 1) * page;
        mappedBytes_ = readable + page;
        void* const start = ::mmap(nullptr, mappedBytes_, PROT_READ | PROT_WRITE,
                                   MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (start == MAP_FAILED)
            throw std::bad_alloc();
        start_ = static_cast<std::byte*>(start);
        ::mprotect(start_ + readable, page, PROT_NONE);
        data_ = start_ + readable - size_;
        if (!bytes.empty())
            std::memcpy(data_, bytes.data(), size_);
    }
    ~GuardedBytes() { ::munmap(start_, mappedBytes_); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    /// Not read-only, as a host hands chunks over.
    [[nodiscard]] std::span<std::byte> whole() { return {data_, size_}; }

private:
    std::size_t size_;
    std::size_t mappedBytes_ = 0;
    std::byte* start_ = nullptr;
    std::byte* data_ = nullptr;
};

} // namespace pedl::test
