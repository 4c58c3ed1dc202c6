#pragma once

#include "parameters/ParameterIndex.h"

#include <cstdint>
#include <ostream>
#include <random>
#include <vector>

namespace pedl::reference {

/// Start of a test's random choices: PEDL_TEST_SEED where it is set, else the one given. Streamed,
/// it reads as the line that repeats the run.
struct TestSeed {
    std::uint32_t value;

    static TestSeed fromEnvironment(std::uint32_t otherwise);
    friend std::ostream& operator<<(std::ostream& stream, TestSeed seed) {
        return stream << "PEDL_TEST_SEED=" << seed.value;
    }
};

/// Random choices that are the same with every standard library.
class RandomChoice {
public:
    explicit RandomChoice(std::uint32_t seed) : generator_(seed) {}

    /// 0 up to, not including, 1.
    double uniform() { return static_cast<double>(generator_()) / 4294967296.0; }
    double between(double low, double high) { return low + (high - low) * uniform(); }
    /// 0..count - 1
    int below(int count) { return static_cast<int>(uniform() * count); }
    bool chance(double share) { return uniform() < share; }
    template <typename Row> const Row& of(const std::vector<Row>& rows) {
        return rows[static_cast<std::size_t>(below(static_cast<int>(rows.size())))];
    }

private:
    std::mt19937 generator_;
};

struct ParameterValue {
    int index;
    float normalised;
};

/// A value worth trying: often a bound, a middle, or a hair beside a switch's threshold. What would
/// silence the effect's sound (bypass, no wet signal, freeze) comes up seldom.
float randomValue(RandomChoice& random, int index);

/// One for every parameter, in a random order.
std::vector<ParameterValue> randomProgram(RandomChoice& random);

/// A few, as a host's automation moves them.
std::vector<ParameterValue> randomChanges(RandomChoice& random, int count);

} // namespace pedl::reference
