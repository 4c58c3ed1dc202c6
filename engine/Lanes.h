#pragma once

#include "engine/Stretch.h"

#include <xsimd/xsimd.hpp>

namespace pedl {

// The registers that a stage is compiled for. A stage is a template over one of these, so that the
// code for one processor never bears the same symbol as the code for another: the linker keeps one
// copy of each symbol, and an AVX2 copy in a path for every processor would be an illegal
// instruction on old ones. That is also why the pair of the wide set is tagged differently.

/// Two lanes at a time: every x86-64 processor.
struct Sse2Lanes {
    using Wide = xsimd::batch<double, xsimd::sse2>; ///< for frames that do not wait for each other
    using Pair = xsimd::batch<double, xsimd::sse2>; ///< left and right of one frame
};

#ifdef __AVX2__
/// Four lanes at a time.
struct Avx2Lanes {
    using Wide = xsimd::batch<double, xsimd::avx2>;
    using Pair = xsimd::batch<double, xsimd::sse4_2>;
};
#endif

/// `value` with the denormal guard added and taken away again. A guard that would change nothing is
/// skipped: the test is a branch that the processor foresees, so that the next step of a recursion
/// does not wait for two additions.
template <typename Pair> [[gnu::always_inline]] inline Pair guarded(Pair value) noexcept {
    if (xsimd::any(xsimd::abs(value) < Pair(kGuardMatters))) [[unlikely]]
        return value + Pair(kDenormalGuard) - Pair(kDenormalGuard);
    return value;
}

[[gnu::always_inline]] inline double guarded(double value) noexcept {
    if (__builtin_fabs(value) < kGuardMatters) [[unlikely]]
        return value + kDenormalGuard - kDenormalGuard;
    return value;
}

/// One value of each frame in `mono`, doubled for the two lanes of a stereo stretch.
template <typename Wide> struct Doubled {
    Wide first;  ///< the frames of the first stereo register
    Wide second; ///< the frames of the second
};

inline Doubled<Sse2Lanes::Wide> doubled(Sse2Lanes::Wide mono) noexcept {
    return {_mm_unpacklo_pd(mono, mono), _mm_unpackhi_pd(mono, mono)};
}

#ifdef __AVX2__
inline Doubled<Avx2Lanes::Wide> doubled(Avx2Lanes::Wide mono) noexcept {
    return {_mm256_permute4x64_pd(mono, 0x50), _mm256_permute4x64_pd(mono, 0xFA)};
}
#endif

} // namespace pedl
