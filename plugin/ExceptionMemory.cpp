// Where a thrown exception lives, in place of the C++ runtime's own pool.
//
// The runtime's static form reserves some 70 kB for exceptions when the library is loaded and never
// gives them back: a host that scans plug-ins would lose that with every unloading. All that we
// throw is a failed allocation, caught at the entry. One static block is enough for it when even
// the few bytes that it needs are not to be had.

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace {

/// The unwinder's header before each thrown object; part of the C++ binary interface of x86-64.
constexpr std::size_t kHeaderBytes = 128;

constexpr std::size_t kReserveBytes = 512;

alignas(std::max_align_t) constinit char reserve[kReserveBytes];
constinit std::atomic_flag isReserveTaken;

void* takeReserve(std::size_t sizeBytes) noexcept {
    const bool isFree = sizeBytes <= kReserveBytes && !isReserveTaken.test_and_set();
    return isFree ? reserve : nullptr;
}

} // namespace

extern "C" {

void* __cxa_allocate_exception(std::size_t objectBytes) noexcept {
    const std::size_t sizeBytes = kHeaderBytes + objectBytes;
    void* block = std::malloc(sizeBytes);
    if (block == nullptr)
        block = takeReserve(sizeBytes);
    if (block == nullptr)
        std::terminate();
    std::memset(block, 0, kHeaderBytes);
    return static_cast<char*>(block) + kHeaderBytes;
}

void __cxa_free_exception(void* object) noexcept {
    char* const block = static_cast<char*>(object) - kHeaderBytes;
    if (block == reserve)
        isReserveTaken.clear();
    else
        std::free(block);
}
}

/// In place of the runtime's own handler, which names the exception on the host's standard error
/// and brings a reader of symbol names along for it, 80 kB of the library.
void __gnu_cxx::__verbose_terminate_handler() {
    std::abort();
}
