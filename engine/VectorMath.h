#pragma once

#include <xsimd/xsimd.hpp>

#include <cstdint>

namespace pedl::vectormath {

// Elementary functions over a register of doubles. They use additions, multiplications, divisions
// and bit operations alone, in one fixed order: every register width gives the same bits. The
// polynomials were fitted at Chebyshev nodes in 60-digit arithmetic; errors are stated in units of
// the last place (ulp) and are proved by tests.

template <typename V> using Bits = xsimd::batch<std::uint64_t, typename V::arch_type>;

/// 1.5 * 2^52: adding it to a number below 2^51 leaves the nearest integer in the lowest bits.
constexpr double kRoundToInteger = 6755399441055744.0;

constexpr double kLog2OfE = 1.4426950408889634;
constexpr double kLog10OfE = 0.4342944819032518;
constexpr double kLn2 = 0.6931471805599453;
/// ln 2 in two pieces; the first has 20 zero bits, so that its multiples are exact.
constexpr double kLn2High = 0.6931471804855391;
constexpr double kLn2Low = 7.440617110012397e-11;
/// The decimal logarithm of 2 likewise.
constexpr double kLog10Of2High = 0.30102999560767785;
constexpr double kLog10Of2Low = 5.630334806675098e-11;

/// e^remainder - 1 for |remainder| up to half of ln 2. Error below 0.3 ulp of the polynomial.
template <typename V> inline V expm1Remainder(V r) noexcept {
    const V r2 = r * r;
    const V r4 = r2 * r2;
    const V c01 = V(0.5000000000000001) + r * V(0.16666666666666669);
    const V c23 = V(0.04166666666662413) + r * V(0.008333333333330062);
    const V c45 = V(0.0013888888917213717) + r * V(0.00019841269863053618);
    const V c67 = V(2.4801521295954376e-05) + r * V(2.7557268459997064e-06);
    const V c89 = V(2.7620088445409746e-07) + r * V(2.510038549551032e-08);
    const V low = c01 + r2 * c23;
    const V high = c45 + r2 * c67 + r4 * c89;
    return r + r2 * (low + r4 * high);
}

/// 2^n, n being the integer in the lowest bits of `shifted` (a number plus kRoundToInteger).
template <typename V> inline V powerOfTwo(V shifted) noexcept {
    const Bits<V> exponent = xsimd::bitwise_cast<Bits<V>>(shifted) + Bits<V>(1023);
    return xsimd::bitwise_cast<V>(exponent << 52);
}

/// e^x within 1.1 ulp; x is taken as the nearer of -708 and 709 outside of them.
template <typename V> inline V exp(V x) noexcept {
    const V inside = xsimd::min(xsimd::max(x, V(-708.0)), V(709.0));
    const V shifted = inside * V(kLog2OfE) + V(kRoundToInteger);
    const V n = shifted - V(kRoundToInteger);
    const V r = (inside - n * V(kLn2High)) - n * V(kLn2Low);
    const V scale = powerOfTwo(shifted);
    return scale + scale * expm1Remainder(r);
}

/// 2^x within 1.2 ulp; x is taken as the nearer of -1022 and 1022 outside of them.
template <typename V> inline V exp2(V x) noexcept {
    const V inside = xsimd::min(xsimd::max(x, V(-1022.0)), V(1022.0));
    const V shifted = inside + V(kRoundToInteger);
    const V r = (inside - (shifted - V(kRoundToInteger))) * V(kLn2);
    const V scale = powerOfTwo(shifted);
    return scale + scale * expm1Remainder(r);
}

/// A logarithm in parts: that of a power of two, and the natural one of what is left, a number in
/// sqrt(1/2)..sqrt(2), which is `large` - `small`.
template <typename V> struct LogarithmParts {
    V exponent; ///< of two, a whole number
    V large, small;
};

/// The parts of the logarithm of `x`, which has to be positive, finite and not denormal.
template <typename V> inline LogarithmParts<V> logarithmParts(V x) noexcept {
    constexpr std::uint64_t kSqrtHalf = 0x3fe6a09e667f3bcdULL; // bits of the square root of 1/2
    constexpr std::uint64_t kOne = 0x3ff0000000000000ULL;
    constexpr std::uint64_t kTwo52 = 0x4330000000000000ULL; // 2^52: its low bits hold an integer
    const Bits<V> bits = xsimd::bitwise_cast<Bits<V>>(x);
    // Biased so that the mantissa lies in sqrt(1/2)..sqrt(2): the polynomial is shortest there.
    const Bits<V> biased = (bits - Bits<V>(kSqrtHalf) + Bits<V>(kOne)) >> 52;
    const V exponent = xsimd::bitwise_cast<V>(biased | Bits<V>(kTwo52)) -
                       V(4503599627370496.0 + 1023.0); // 2^52 and the bias, exact
    const V mantissa = xsimd::bitwise_cast<V>(bits - (biased << 52) + Bits<V>(kOne));
    const V f = mantissa - V(1.0);
    // log(1 + f) = 2 artanh(s), s = f / (2 + f), written so that f is added last and unrounded.
    const V s = f / (V(2.0) + f);
    const V z = s * s;
    const V z2 = z * z;
    const V p = (V(0.666666666666667) + z * V(0.3999999999989938)) +
                z2 * ((V(0.28571428626031065) + z * V(0.22222211125723262)) +
                      z2 * ((V(0.1818288978615799) + z * V(0.15331699634642276)) +
                            z2 * V(0.146167211662876)));
    const V halfSquare = V(0.5) * f * f;
    return {exponent, f, halfSquare - s * (halfSquare + z * p)};
}

/// Natural logarithm from its parts, within 1 ulp.
template <typename V> inline V naturalLogarithm(LogarithmParts<V> parts) noexcept {
    return parts.exponent * V(kLn2High) -
           ((parts.small - parts.exponent * V(kLn2Low)) - parts.large);
}

/// Decimal logarithm from its parts, within 1.8 ulp and exact for powers of ten: levels at their
/// floor choose the last entry of a table.
template <typename V> inline V decimalLogarithm(LogarithmParts<V> parts) noexcept {
    return parts.exponent * V(kLog10Of2High) +
           (parts.exponent * V(kLog10Of2Low) + (parts.large - parts.small) * V(kLog10OfE));
}

/// Natural logarithm within 1 ulp. `x` has to be positive, finite and not denormal.
template <typename V> inline V log(V x) noexcept {
    return naturalLogarithm(logarithmParts(x));
}

/// Decimal logarithm within 1.8 ulp, for the same arguments.
template <typename V> inline V log10(V x) noexcept {
    return decimalLogarithm(logarithmParts(x));
}

/// base^exponent by way of the logarithm, within 2 + 2.5 |exponent ln base| ulp; 0 for a base of 0
/// or below. The engine's bases and exponents keep |exponent ln base| small where the result
/// counts.
template <typename V> inline V pow(V base, V exponent) noexcept {
    constexpr double kSmallestBase = 1e-300;
    // Named in full: unqualified, the library's own functions for the register would be found.
    const V logarithm = vectormath::log(xsimd::max(base, V(kSmallestBase)));
    return xsimd::select(base > V(0.0), vectormath::exp(exponent * logarithm), V(0.0));
}

/// Hyperbolic tangent within 3 ulp, also of very small numbers.
template <typename V> inline V tanh(V x) noexcept {
    constexpr double kSaturates = 44.0; // 1 - tanh(22) is below half an ulp of 1
    const V twice = xsimd::min(xsimd::abs(x) * V(2.0), V(kSaturates));
    const V shifted = twice * V(kLog2OfE) + V(kRoundToInteger);
    const V n = shifted - V(kRoundToInteger);
    const V r = (twice - n * V(kLn2High)) - n * V(kLn2Low);
    const V scale = powerOfTwo(shifted);
    const V expm1 = scale * expm1Remainder(r) + (scale - V(1.0));
    const V magnitude = expm1 / (expm1 + V(2.0));
    return xsimd::copysign(magnitude, x);
}

} // namespace pedl::vectormath
