#include "engine/Lfo.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

/// At this rate a wave of 32 Hz moves by exactly one table step a frame.
constexpr double kStepRateHz = 65536.0;
constexpr double kStepHz = 32.0;
constexpr std::uint32_t kSeed = 4711;
constexpr double kMiddle = 0.5; // width without bend, spread without offset

struct Played {
    StereoSamples raw, smoothed;
};

struct TestLfo : Lfo {
    explicit TestLfo(Wave wave, double width = kMiddle, double spread = kMiddle,
                     double sampleRateHz = kStepRateHz)
        : Lfo(kSeed) {
        setType(std::min((static_cast<int>(wave) + 0.1) / 6.0, 1.0));
        setWidth(width);
        setSpread(spread);
        setSampleRate(sampleRateHz);
        reinitialise(kSeed);
    }

    Played play(int frames, double rateHz = kStepHz) {
        MonoStretch rate;
        std::fill_n(rate.at, kStretchFrames, rateHz);
        LfoOutput output;
        Played played;
        inStretches(frames, [&](int, int length) {
            process(rate, length, output);
            append(output.raw, length, played.raw);
            append(output.smoothed, length, played.smoothed);
        });
        return played;
    }
};

double shareAboveZero(const Samples& wave) {
    const auto count = std::ranges::count_if(wave, [](double sample) { return sample > 0.0; });
    return static_cast<double>(count) / static_cast<double>(wave.size());
}

TEST(Lfo, WavesHaveTheirShapes) {
    struct Row {
        const char* story;
        Lfo::Wave wave;
        double (*at)(double cycle);
    };
    for (const Row& row :
         {Row{"sine", Lfo::Wave::Sine, [](double c) { return std::sin(2.0 * kPi * c); }},
          Row{"triangle", Lfo::Wave::Triangle,
              [](double c) { return std::asin(std::sin(2.0 * kPi * c)) * 2.0 / kPi; }},
          Row{"saw up, the jump in the middle", Lfo::Wave::SawUp,
              [](double c) { return c < 0.5 ? 2.0 * c : 2.0 * c - 2.0; }},
          Row{"saw down", Lfo::Wave::SawDown,
              [](double c) { return c < 0.5 ? -2.0 * c : 2.0 - 2.0 * c; }},
          Row{"square", Lfo::Wave::Square, [](double c) { return c <= 0.5 ? 1.0 : -1.0; }},
          Row{"spike", Lfo::Wave::Spike, [](double c) {
                  const double x = 2.0 * (c < 0.5 ? c : c - 0.5); // of half a cycle
                  const double up =
                      x < 102.0 / 1024.0 ? 10.0 * x : 1.0 - 10.0 * (x - 102.0 / 1024.0);
                  return x < 204.0 / 1024.0 ? (c < 0.5 ? up : -up) : 0.0;
              }}}) {
        SCOPED_TRACE(row.story);
        const Played played = TestLfo(row.wave).play(2 * kWaveSteps);
        for (std::size_t i = 0; i < 2 * kWaveSteps; ++i)
            ASSERT_NEAR(played.raw.left[i],
                        row.at(static_cast<double>(i % kWaveSteps) / kWaveSteps), 1e-9)
                << i;
        EXPECT_EQ(played.raw.left, played.raw.right);
    }
}

TEST(Lfo, WidthNarrowsThePeaksAndSetsThePulseWidth) {
    for (const double width : {0.0, 0.25, 0.75, 1.0}) {
        SCOPED_TRACE(testing::Message() << "width " << width);
        // A width w above 1 lifts the crossing to u^w = 1/2; below 1 the wave is upside down.
        const double bend = std::pow(64.0, std::abs(0.5 - width));
        const double crossing = std::asin(2.0 * std::pow(0.5, 1.0 / bend) - 1.0);
        const double narrow = (kPi - 2.0 * crossing) / (2.0 * kPi);
        const double share = width < 0.5 ? narrow : 1.0 - narrow;
        const Samples sine = TestLfo(Lfo::Wave::Sine, width).play(kWaveSteps).raw.left;
        EXPECT_NEAR(shareAboveZero(sine), share, 2.0 / kWaveSteps);
        EXPECT_NEAR(sine[kWaveSteps / 4], 1.0, 1e-9);
        EXPECT_NEAR(sine[3 * kWaveSteps / 4], -1.0, 1e-9);
        const Samples square = TestLfo(Lfo::Wave::Square, width).play(kWaveSteps).raw.left;
        EXPECT_NEAR(shareAboveZero(square), share, 2.0 / kWaveSteps);
        for (const double sample : square)
            EXPECT_EQ(std::abs(sample), 1.0);
    }
}

TEST(Lfo, SpreadMovesTheRightChannelByUpToHalfACycle) {
    struct Row {
        double spread;
        int stepsAhead; // sign(1 - 2v) (1 - 2v)^2 of half a cycle
    };
    for (const Row& row :
         {Row{0.0, 1024}, Row{0.25, 256}, Row{0.5, 0}, Row{0.75, -256}, Row{1.0, -1024}})
        for (const auto wave : {Lfo::Wave::SawUp, Lfo::Wave::SawDown, Lfo::Wave::Triangle}) {
            const Played played = TestLfo(wave, kMiddle, row.spread).play(2 * kWaveSteps);
            for (std::size_t i = 0; i < kWaveSteps; ++i) {
                const auto ahead =
                    static_cast<std::size_t>(static_cast<int>(i) + row.stepsAhead + kWaveSteps) %
                    kWaveSteps;
                ASSERT_EQ(played.raw.right[i], played.raw.left[ahead]) << row.spread << ", " << i;
            }
        }
}

TEST(Lfo, LeftSpikeFollowsTheRightChannelBelowZero) {
    constexpr double kNarrow = 0.25;
    const double width = std::sqrt(8.0);
    const LfoWaves& waves = LfoWaves::shared();
    const Played played = TestLfo(Lfo::Wave::Spike, kNarrow, 0.25).play(kWaveSteps);
    const auto downwards = [&](double magnitude) { return -std::pow(magnitude, 1.0 / width); };
    for (std::size_t i = 0; i < kWaveSteps; ++i) {
        const double left = waves.spike[i], right = waves.spike[(i + 256) % kWaveSteps];
        const double bentLeft = left > 0.0 ? std::pow(left, width) : downwards(std::abs(right));
        const double bentRight = right > 0.0 ? std::pow(right, width) : downwards(-right);
        ASSERT_NEAR(played.raw.left[i], bentLeft, 1e-12) << i;
        ASSERT_NEAR(played.raw.right[i], bentRight, 1e-12) << i;
    }
    // Where the right channel peaks upwards and the left one rests, the left one points down.
    EXPECT_NEAR(played.raw.right[kWaveSteps - 256 + 102], 1.0, 1e-12);
    EXPECT_NEAR(played.raw.left[kWaveSteps - 256 + 102], -1.0, 1e-12);
}

TEST(RandomWaves, ComeFromTheStatedGenerator) {
    RandomWaves waves;
    waves.draw(0);
    // state * 214013 + 2531011 modulo 2^32, bits 16 to 30: 38, 7719, 21238 from a state of 0.
    const double drawn[] = {38.0, 7719.0, 21238.0};
    for (std::size_t i = 0; i < 3; ++i) {
        const double x = 2.0 * drawn[i] / 32767.0 - 1.0;
        const double pushed = std::copysign(std::pow(std::abs(x), 0.7), x);
        EXPECT_NEAR(waves.values[i], 0.5 + 0.5 * pushed, 1e-15) << i;
    }
}

TEST(Lfo, CyclesComeAtTheStatedRateWithoutRandomAmount) {
    for (const double sampleRateHz : {44100.0, 96000.0})
        for (const double randomType : {0.0, 1.0})
            for (const double rateHz : {1.0, 15.0}) {
                TestLfo lfo(Lfo::Wave::SawUp, kMiddle, kMiddle, sampleRateHz);
                lfo.setRandomType(randomType);
                const Samples saw =
                    lfo.play(static_cast<int>(8.25 * sampleRateHz), rateHz).raw.left;
                int cycles = 0;
                for (std::size_t i = 1; i < saw.size(); ++i)
                    cycles += saw[i] < saw[i - 1] - 1.0 ? 1 : 0;
                EXPECT_EQ(cycles, std::round(8.25 * rateHz))
                    << rateHz << " Hz, type " << randomType;
            }
}

TEST(Lfo, SmoothedWaveIsAPoleAtThreeTenthsOfTheFiltersCorner) {
    struct Row {
        double filter, rate, cornerHz;
    };
    for (const Row& row :
         {Row{1.0, 0.0, 10.0}, Row{0.0, 0.0, 100.0}, Row{0.5, 0.0, 31.6228}, Row{1.0, 1.0, 25.0}}) {
        TestLfo lfo(Lfo::Wave::Square);
        lfo.setFilter(row.filter);
        lfo.setRate(row.rate);
        lfo.reinitialise(kSeed);
        const double timeConstant = kStepRateHz / (2.0 * kPi * 0.3 * row.cornerHz);
        const StereoSamples smoothed = lfo.play(static_cast<int>(timeConstant), 0.01).smoothed;
        EXPECT_NEAR(smoothed.left.back(), 1.0 - 2.0 / std::exp(1.0), 0.01) << row.cornerHz;
        EXPECT_EQ(smoothed.left, smoothed.right);
        EXPECT_NEAR(lfo.filterCoefficient(),
                    1.0 - std::exp(-2.0 * kPi * row.cornerHz / kStepRateHz), 1e-6);
    }
}

} // namespace
} // namespace pedl
