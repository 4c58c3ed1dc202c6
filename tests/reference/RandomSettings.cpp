#include "tests/reference/RandomSettings.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace pedl::reference {

namespace {

float usuallyOr(RandomChoice& random, float usual, float seldom) {
    return random.chance(0.88) ? usual : seldom;
}

float besideAThreshold(RandomChoice& random) {
    const float threshold = random.of<float>({0.25F, 0.5F, 0.75F});
    return std::nextafter(threshold, random.chance(0.5) ? 0.0F : 1.0F);
}

float anyValue(RandomChoice& random) {
    if (random.chance(0.2))
        return random.of<float>({0.0F, 0.25F, 0.5F, 0.75F, 1.0F});
    if (random.chance(0.1))
        return besideAThreshold(random);
    return static_cast<float>(random.uniform());
}

} // namespace

TestSeed TestSeed::fromEnvironment(std::uint32_t otherwise) {
    const char* text = std::getenv("PEDL_TEST_SEED");
    return {text ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : otherwise};
}

float randomValue(RandomChoice& random, int index) {
    switch (index) {
    case kPower:
    case kFreez:
    case kModulationOnOff:
    case kDryWetGlobal:
        return usuallyOr(random, 0.0F, anyValue(random));
    case kWetDefeat:
        return usuallyOr(random, 1.0F, anyValue(random));
    case kFilterPole:
        return random.chance(0.1) ? 0.0F : random.of<float>({0.25F, 0.5F, 0.74F, 0.75F, 1.0F});
    case kLFOType: // every wave alike; the random one is selected by 1 alone
        return std::min((static_cast<float>(random.below(7)) + 0.5F) / 6.0F, 1.0F);
    case kGain:
        return static_cast<float>(random.between(0.3, 0.7));
    default:
        return anyValue(random);
    }
}

std::vector<ParameterValue> randomProgram(RandomChoice& random) {
    std::vector<int> order(kNumParams);
    std::iota(order.begin(), order.end(), 0);
    for (int left = kNumParams; left > 1; --left)
        std::swap(order[static_cast<std::size_t>(left - 1)],
                  order[static_cast<std::size_t>(random.below(left))]);
    std::vector<ParameterValue> program;
    for (const int index : order)
        program.push_back({index, randomValue(random, index)});
    return program;
}

std::vector<ParameterValue> randomChanges(RandomChoice& random, int count) {
    std::vector<ParameterValue> changes;
    for (int i = 0; i < count; ++i) {
        const int index = random.below(kNumParams);
        changes.push_back({index, randomValue(random, index)});
    }
    return changes;
}

} // namespace pedl::reference
