#include "engine/VectorMath.h"

#include "tests/support/Thoroughness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace pedl {
namespace {

using Lanes = xsimd::batch<double, xsimd::sse2>;
using Samples = std::vector<double>;
constexpr int kArguments = test::asManyAs(400000);

template <Lanes function(Lanes)> double valueAt(double x) {
    return function(Lanes(x)).get(0);
}

double power(double base, double exponent) {
    return vectormath::pow(Lanes(base), Lanes(exponent)).get(0);
}

/// Distance in units of the last place of the double nearest to `exact`.
double ulps(double value, long double exact) {
    const double nearest = std::abs(static_cast<double>(exact));
    const double above = std::nextafter(nearest, std::numeric_limits<double>::infinity());
    return static_cast<double>(std::abs(static_cast<long double>(value) - exact) /
                               static_cast<long double>(above - nearest));
}

/// The same with every standard library.
double between(double low, double high, std::mt19937& random) {
    return low + (high - low) * std::generate_canonical<double, 32>(random);
}

/// Half of the arguments even over low..high, half with exponents from the smallest up.
Samples arguments(double low, double high, double smallest) {
    std::mt19937 random(1);
    const double largest = std::max(std::abs(low), std::abs(high));
    Samples x{low, high, low < 0.0 ? -smallest : smallest, smallest};
    while (x.size() < kArguments) {
        x.push_back(between(low, high, random));
        const double magnitude =
            smallest * std::exp2(between(0.0, std::log2(largest / smallest), random));
        const bool isNegative = low < 0.0 && between(0.0, 1.0, random) < 0.5;
        x.push_back(isNegative ? -std::min(magnitude, -low) : std::min(magnitude, high));
    }
    return x;
}

double worstUlps(double (*function)(double), const Samples& x, long double (*exact)(long double)) {
    double worst = 0.0;
    for (const double at : x)
        worst = std::max(worst, ulps(function(at), exact(at)));
    return worst;
}

constexpr auto exp = valueAt<vectormath::exp<Lanes>>;
constexpr auto exp2 = valueAt<vectormath::exp2<Lanes>>;
constexpr auto log = valueAt<vectormath::log<Lanes>>;
constexpr auto log10 = valueAt<vectormath::log10<Lanes>>;
constexpr auto tanh = valueAt<vectormath::tanh<Lanes>>;

TEST(VectorMath, FunctionsKeepTheirErrorBounds) {
    EXPECT_LT(worstUlps(exp, arguments(-708.0, 709.0, 1e-300), std::exp), 1.1);
    EXPECT_LT(worstUlps(exp2, arguments(-1022.0, 1022.0, 1e-300), std::exp2), 1.2);
    EXPECT_LT(worstUlps(tanh, arguments(-25.0, 25.0, 1e-300), std::tanh), 3.0);
    EXPECT_LT(worstUlps(log, arguments(0.4, 2.5, 2.3e-308), std::log), 1.0);
    EXPECT_LT(worstUlps(log, arguments(2.3e-308, 1.7e308, 2.3e-308), std::log), 1.0);
    // Where the polynomials' ranges meet, and beside 1.
    std::mt19937 random(6);
    Samples x;
    for (int i = 0; i < kArguments; ++i)
        x.push_back(std::ldexp(i % 2 == 0 ? std::sqrt(0.5) : 1.0, i / 2 % 41 - 20) *
                    (1.0 + between(-1e-6, 1e-6, random)));
    EXPECT_LT(worstUlps(log, x, std::log), 1.0);
    EXPECT_LT(worstUlps(log10, x, std::log10), 1.8);
    EXPECT_LT(worstUlps(log10, arguments(2.3e-308, 1.7e308, 2.3e-308), std::log10), 1.8);
}

TEST(VectorMath, PowerKeepsItsErrorBound) {
    std::mt19937 random(7);
    for (int i = 0; i < kArguments; ++i) {
        const double base =
            i % 2 == 0 ? between(1e-10, 1.0, random) : std::pow(10.0, between(-12.0, 12.0, random));
        const double exponent = i % 3 == 0 ? between(-8.0, 8.0, random) : between(0.0, 1.0, random);
        const long double exact = std::pow(static_cast<long double>(base), exponent);
        // Up to 1.25 ulp of the logarithm and its product, where an ulp may weigh twice as much.
        const double bound = 2.0 + 2.5 * std::abs(exponent * std::log(base));
        ASSERT_LT(ulps(power(base, exponent), exact), bound) << base << " to the " << exponent;
    }
}

TEST(VectorMath, ExactWhereTheMusicRests) {
    EXPECT_EQ(exp(0.0), 1.0);
    EXPECT_EQ(exp2(0.0), 1.0);
    EXPECT_EQ(log(1.0), 0.0);
    for (int power = -12; power <= 12; ++power)
        EXPECT_EQ(log10(std::pow(10.0, power)), power);
    EXPECT_TRUE(std::signbit(tanh(-0.0)));
    EXPECT_EQ(power(0.0, 0.5), 0.0);
    EXPECT_EQ(power(-1.0, 2.0), 0.0);
}

TEST(VectorMath, ArgumentsOutsideCountAsTheNearerBound) {
    for (const double beyond : {1.5e3, 1e300, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(exp(beyond), exp(709.0));
        EXPECT_EQ(exp2(-beyond), std::ldexp(1.0, -1022));
        EXPECT_EQ(tanh(-beyond), -1.0);
    }
}

} // namespace
} // namespace pedl
