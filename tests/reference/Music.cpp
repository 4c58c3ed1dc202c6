#include "tests/reference/Music.h"

#include "tests/reference/RandomSettings.h"

#include <cmath>

namespace pedl::reference {

namespace {

constexpr double kChordSeconds = 0.21;
constexpr double kDecaySeconds = 0.08;
constexpr double kBurstSeconds = 0.02;
constexpr std::array<double, 4> kRootsHz{110.0, 146.8, 98.0, 82.4};
constexpr std::array<double, 3> kChord{1.0, 1.26, 1.498};

double saw(double cycles) {
    return 2.0 * (cycles - std::floor(cycles)) - 1.0;
}

double chord(double rootHz, double seconds) {
    double sum = 0.0;
    for (const double interval : kChord)
        sum += saw(rootHz * interval * seconds) / static_cast<double>(kChord.size());
    return sum;
}

} // namespace

Sound music(std::size_t frames, double sampleRateHz, std::uint32_t seed) {
    RandomChoice random(seed);
    Sound sound{std::vector<double>(frames), std::vector<double>(frames)};
    double rootHz = 0.0, loudness = 0.0, struckAt = -1.0;
    for (std::size_t i = 0; i < frames; ++i) {
        const double seconds = static_cast<double>(i) / sampleRateHz;
        if (struckAt < 0.0 || seconds - struckAt >= kChordSeconds) {
            struckAt = seconds;
            rootHz = kRootsHz[static_cast<std::size_t>(random.below(4))];
            loudness = std::pow(10.0, random.between(-1.5, 0.0));
        }
        const double age = seconds - struckAt;
        const double fall = loudness * std::exp(-age / kDecaySeconds);
        const double burst = age < kBurstSeconds ? random.between(-0.5, 0.5) : 0.0;
        sound[0][i] = fall * (0.7 * chord(rootHz, seconds) + burst);
        sound[1][i] = fall * (0.7 * chord(rootHz * 1.003, seconds) - 0.6 * burst);
    }
    return sound;
}

} // namespace pedl::reference
