#include "engine/VectorMath.h"

#include "engine/InstructionSet.h"
#include "tests/engine/Signals.h"
#include "tests/engine/VectorMathSamples.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

namespace pedl {
namespace {

using namespace test;

using TwoLanes = xsimd::batch<double, xsimd::sse2>;
constexpr int kArguments = 400000;

Samples twoLanes(Function function, const Samples& x, const Samples& y = {}) {
    Samples result(x.size());
    evaluate<TwoLanes>(function, x.data(), y.data(), result.data(), static_cast<int>(x.size()));
    return result;
}

double twoLanes(Function function, double x, double y = 0.0) {
    return twoLanes(function, Samples{x, x}, Samples{y, y})[0];
}

/// Distance in units of the last place of the double nearest to `exact`.
double ulps(double value, long double exact) {
    const double nearest = std::abs(static_cast<double>(exact));
    const double above = std::nextafter(nearest, std::numeric_limits<double>::infinity());
    return static_cast<double>(std::abs(static_cast<long double>(value) - exact) /
                               static_cast<long double>(above - nearest));
}

/// Half of the arguments even over low..high, half with exponents from the smallest up.
Samples arguments(double low, double high, double smallest, std::uint32_t seed) {
    Random random(seed);
    const double largest = std::max(std::abs(low), std::abs(high));
    Samples x{low, high, low < 0.0 ? -smallest : smallest, smallest};
    while (x.size() < kArguments) {
        x.push_back(random.between(low, high));
        const double magnitude =
            smallest * std::pow(2.0, random.uniform() * std::log2(largest / smallest));
        x.push_back(low < 0.0 && random.uniform() < 0.5 ? -std::min(magnitude, -low)
                                                        : std::min(magnitude, high));
    }
    return x;
}

double worstUlps(Function function, const Samples& x, long double (*exact)(long double)) {
    const Samples result = twoLanes(function, x);
    double worst = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i)
        worst = std::max(worst, ulps(result[i], exact(x[i])));
    return worst;
}

TEST(VectorMath, FunctionsKeepTheirErrorBounds) {
    EXPECT_LT(worstUlps(Function::Exp, arguments(-708.0, 709.0, 1e-300, 1), std::exp), 1.1);
    EXPECT_LT(worstUlps(Function::Exp2, arguments(-1022.0, 1022.0, 1e-300, 2), std::exp2), 1.2);
    EXPECT_LT(worstUlps(Function::Tanh, arguments(-25.0, 25.0, 1e-300, 3), std::tanh), 3.0);
    EXPECT_LT(worstUlps(Function::Log, arguments(0.4, 2.5, 2.3e-308, 4), std::log), 1.0);
    EXPECT_LT(worstUlps(Function::Log, arguments(2.3e-308, 1.7e308, 2.3e-308, 5), std::log), 1.0);
    // Where the polynomials' ranges meet, and beside 1.
    Random random(6);
    Samples x;
    for (int i = 0; i < kArguments; ++i) {
        const double edge = std::ldexp(i % 2 == 0 ? std::sqrt(0.5) : 1.0, random.integer(-20, 20));
        x.push_back(edge * (1.0 + random.between(-1e-6, 1e-6)));
    }
    EXPECT_LT(worstUlps(Function::Log, x, std::log), 1.0);
}

TEST(VectorMath, PowerKeepsItsErrorBound) {
    Random random(7);
    Samples base, exponent;
    for (int i = 0; i < kArguments; ++i) {
        base.push_back(i % 2 == 0 ? random.uniform() : std::pow(10.0, random.between(-12.0, 12.0)));
        exponent.push_back(i % 3 == 0 ? random.between(-8.0, 8.0) : random.uniform());
    }
    const Samples result = twoLanes(Function::Pow, base, exponent);
    for (std::size_t i = 0; i < base.size(); ++i) {
        if (base[i] == 0.0)
            continue;
        const long double exact =
            std::pow(static_cast<long double>(base[i]), static_cast<long double>(exponent[i]));
        // Up to 1.25 ulp of the logarithm and its product, where an ulp may weigh twice as much.
        const double bound = 2.0 + 2.5 * std::abs(exponent[i] * std::log(base[i]));
        ASSERT_LT(ulps(result[i], exact), bound) << base[i] << " to the " << exponent[i];
    }
    EXPECT_EQ(twoLanes(Function::Pow, 0.0, 0.5), 0.0);
    EXPECT_EQ(twoLanes(Function::Pow, -1.0, 2.0), 0.0);
    EXPECT_EQ(twoLanes(Function::Pow, 1.0, 123.0), 1.0);
    EXPECT_EQ(twoLanes(Function::Pow, 0.3, 0.0), 1.0);
}

TEST(VectorMath, ExactWhereTheMusicRests) {
    for (const Function function : {Function::Exp, Function::Exp2})
        EXPECT_EQ(twoLanes(function, 0.0), 1.0);
    EXPECT_EQ(twoLanes(Function::Exp2, 10.0), 1024.0);
    EXPECT_EQ(twoLanes(Function::Log, 1.0), 0.0);
    EXPECT_EQ(twoLanes(Function::Tanh, 0.0), 0.0);
    EXPECT_TRUE(std::signbit(twoLanes(Function::Tanh, -0.0)));
}

TEST(VectorMath, ArgumentsOutsideCountAsTheNearerBound) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double beyond : {1.5e3, 1e18, 1e300, kInfinity}) {
        EXPECT_EQ(twoLanes(Function::Exp, beyond), twoLanes(Function::Exp, 709.0));
        EXPECT_EQ(twoLanes(Function::Exp, -beyond), twoLanes(Function::Exp, -708.0));
        EXPECT_EQ(twoLanes(Function::Exp2, beyond), std::ldexp(1.0, 1022));
        EXPECT_EQ(twoLanes(Function::Exp2, -beyond), std::ldexp(1.0, -1022));
        EXPECT_EQ(twoLanes(Function::Tanh, beyond), 1.0);
        EXPECT_EQ(twoLanes(Function::Tanh, -beyond), -1.0);
    }
}

TEST(VectorMath, FourLanesGiveTheBitsOfTwo) {
    if (widestInstructionSet() != InstructionSet::Avx2)
        GTEST_SKIP() << "this processor has two lanes alone";
    Random random(8);
    Samples x(kArguments), y(kArguments), wide(kArguments);
    for (std::size_t i = 0; i < x.size(); ++i) {
        y[i] = random.between(-8.0, 8.0);
        // Any finite number, or one in the range that the engine uses.
        x[i] = i % 2 == 0 ? random.between(-50.0, 50.0) : std::bit_cast<double>(random.bits());
        if (!std::isfinite(x[i]))
            x[i] = 0.5;
    }
    for (const Function function :
         {Function::Exp, Function::Exp2, Function::Log, Function::Tanh, Function::Pow}) {
        evaluateFourLanes(function, x.data(), y.data(), wide.data(), kArguments);
        const Samples narrow = twoLanes(function, x, y);
        for (std::size_t i = 0; i < x.size(); ++i)
            ASSERT_EQ(std::bit_cast<std::uint64_t>(wide[i]),
                      std::bit_cast<std::uint64_t>(narrow[i]))
                << "function " << static_cast<int>(function) << " of " << x[i];
    }
}

} // namespace
} // namespace pedl
