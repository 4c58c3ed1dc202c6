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
constexpr double kFastest = 1.0;

double normalised(Lfo::Wave wave) {
    return (static_cast<int>(wave) + 0.1) / 6.0;
}

struct Played {
    StereoSamples raw, smoothed;
};

struct TestLfo : Lfo {
    explicit TestLfo(Wave wave, double width = kMiddle, double spread = kMiddle,
                     double sampleRateHz = kStepRateHz)
        : Lfo(kSeed) {
        setType(wave == Wave::Random ? 1.0 : normalised(wave));
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
    return static_cast<double>(std::count_if(wave.begin(), wave.end(),
                                             [](double sample) { return sample > 0.0; })) /
           static_cast<double>(wave.size());
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

TEST(Lfo, SpreadGlidesOnceATick) {
    TestLfo lfo(Lfo::Wave::SawUp);
    lfo.setSpread(0.0);
    EXPECT_EQ(lfo.play(1).raw.right[0], 0.0);
    lfo.tick({.slow = 0.25, .fast = 1.0, .nudge = 0.0});
    EXPECT_NEAR(lfo.play(1).raw.right[0], (256.0 + 1.0) / 1024.0, 1e-9);
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

TEST(RandomWaves, KeepTheirRangesAndTheGapsBetweenSteps) {
    for (std::uint32_t seed = 1; seed < 50; ++seed) {
        RandomWaves waves;
        waves.draw(seed);
        EXPECT_GE(waves.steps[0], 0.0) << seed;
        double meanMagnitude = 0.0;
        bool isEverNegative = false;
        for (std::size_t i = 0; i < kWaveSteps; ++i) {
            ASSERT_TRUE(waves.values[i] >= 0.0 && waves.values[i] <= 1.0);
            ASSERT_LE(std::abs(waves.steps[i]), 1.0);
            isEverNegative |= waves.steps[i] < 0.0;
            meanMagnitude += std::abs(2.0 * waves.values[i] - 1.0) / kWaveSteps;
            if (i > 0) {
                ASSERT_GE(std::abs(std::abs(waves.steps[i]) - std::abs(waves.steps[i - 1])), 0.15);
            }
        }
        EXPECT_TRUE(isEverNegative);
        EXPECT_NEAR(meanMagnitude, 1.0 / 1.7, 0.03) << "mean of |x|^0.7 over -1..1";
    }
}

TEST(Lfo, RandomWaveWalksStraightBetweenFourValuesACycle) {
    RandomWaves drawn;
    drawn.draw(kSeed);
    constexpr int kFramesAStep = kWaveSteps / 4;
    const Played played = TestLfo(Lfo::Wave::Random, kMiddle, 0.25).play(8 * kFramesAStep);
    const auto valueAt = [&](double step) {
        const auto j = static_cast<std::size_t>(step);
        const double fraction = step - static_cast<double>(j);
        return 2.0 * ((1.0 - fraction) * drawn.values[j] + fraction * drawn.values[j + 1]) - 1.0;
    };
    for (const int frame : {0, 100, 512, 700, 3000, 4000}) {
        const double step = static_cast<double>(frame) / kFramesAStep;
        EXPECT_NEAR(played.raw.left[static_cast<std::size_t>(frame)], valueAt(step), 1e-9);
        EXPECT_NEAR(played.raw.right[static_cast<std::size_t>(frame)], valueAt(step + 0.25), 1e-9)
            << "spread counts in random steps";
    }
}

TEST(Lfo, RandomWaveStaysInRangeFromItsFirstFrameWithTheRightChannelBehind) {
    for (std::uint32_t seed = 0; seed < 20; ++seed)
        for (const double width : {0.0, 0.5, 1.0})
            for (const double spread : {0.0, 0.7, 1.0}) {
                TestLfo lfo(Lfo::Wave::Random, width, spread);
                lfo.reinitialise(seed);
                const Played played = lfo.play(kWaveSteps);
                EXPECT_TRUE(areFinite(played.raw) && areFinite(played.smoothed));
                EXPECT_LE(std::max(peakOf(played.raw.left), peakOf(played.raw.right)), 1.0 + 1e-12)
                    << "seed " << seed << ", width " << width << ", spread " << spread;
            }
}

TEST(Lfo, ReinitialiseDrawsNewRandomWavesAndRestartsThePhase) {
    TestLfo lfo(Lfo::Wave::Random);
    const Played first = lfo.play(1000);
    lfo.reinitialise(kSeed);
    EXPECT_EQ(lfo.play(1000).raw, first.raw);
    lfo.reinitialise(kSeed + 1);
    EXPECT_NE(lfo.play(1000).raw, first.raw);
}

/// Position in a rising saw's cycle.
double cycleOf(double saw) {
    return saw < 0.0 ? 1.0 + 0.5 * saw : 0.5 * saw;
}

int cyclesIn(const Samples& saw) {
    int cycles = 0;
    for (std::size_t i = 1; i < saw.size(); ++i)
        cycles += saw[i] < saw[i - 1] - 1.0 ? 1 : 0;
    return cycles;
}

TEST(Lfo, CyclesComeAtTheStatedRateWithoutRandomAmount) {
    for (const double sampleRateHz : {44100.0, 96000.0})
        for (const double randomType : {0.0, 1.0})
            for (const double rateHz : {1.0, 15.0}) {
                TestLfo lfo(Lfo::Wave::SawUp, kMiddle, kMiddle, sampleRateHz);
                lfo.setRandomType(randomType);
                const Played played = lfo.play(static_cast<int>(8.25 * sampleRateHz), rateHz);
                EXPECT_EQ(cyclesIn(played.raw.left), std::round(8.25 * rateHz))
                    << rateHz << " Hz, type " << randomType;
            }
}

/// Rate of each stretch of a rising saw as a factor on `rateHz`.
Samples rateFactors(TestLfo& lfo, int stretches, int stretchFrames, double rateHz) {
    const Samples saw = lfo.play(stretches * stretchFrames + 1, rateHz).raw.left;
    Samples factors;
    for (int i = 0; i < stretches; ++i) {
        const auto first = static_cast<std::size_t>(i * stretchFrames);
        double way =
            cycleOf(saw[first + static_cast<std::size_t>(stretchFrames)]) - cycleOf(saw[first]);
        way = way < -1e-9 ? way + 1.0 : way;
        factors.push_back(way * kStepRateHz / (stretchFrames * rateHz));
    }
    return factors;
}

TEST(Lfo, FastRandomRateWandersBetweenAQuarterAndFourTimes) {
    TestLfo lfo(Lfo::Wave::SawUp);
    lfo.setRate(kFastest);
    lfo.setRandomAmount(1.0);
    constexpr int kStretch = 512; // 240 steps at 15 Hz: a step is 0.5 %
    const Samples factors = rateFactors(lfo, 2000, kStretch, 15.0);
    const auto [least, most] = std::minmax_element(factors.begin(), factors.end());
    EXPECT_GT(*least, 0.23); // the cheap power gives 0.97 for 1
    EXPECT_LT(*least, 0.6);
    EXPECT_LT(*most, 4.02);
    EXPECT_GT(*most, 1.7);
    lfo.reinitialise(kSeed);
    lfo.setRandomAmount(0.5);
    const Samples halves = rateFactors(lfo, 100, kStretch, 15.0);
    for (std::size_t i = 0; i < halves.size(); ++i)
        EXPECT_GT(halves[i], 0.5 + 0.5 * 0.23) << "half of the rate is sure";
}

TEST(Lfo, SlowRandomRateFollowsTheStepsAtFiveEighthsASecond) {
    RandomWaves drawn;
    drawn.draw(kSeed);
    for (const double amount : {0.5, 1.0}) {
        TestLfo lfo(Lfo::Wave::SawUp);
        lfo.setRandomType(1.0);
        lfo.setRandomAmount(amount);
        constexpr int kStretch = 1024;
        const Samples factors = rateFactors(lfo, 640, kStretch, 15.0);
        for (const int i : {0, 50, 99, 250, 333, 639}) {
            const double step = (i + 0.5) * kStretch / kStepRateHz * 0.625;
            const auto j = static_cast<std::size_t>(step);
            const double fraction = step - static_cast<double>(j);
            const double walk = (1.0 - fraction) * drawn.steps[j] + fraction * drawn.steps[j + 1];
            const double factor = 0.9 - 0.9 * walk;
            // The slow rate goes up to 1.8, of which amount 1/2 takes the mean of `factor` and 1.
            const double expected = amount == 1.0 ? factor : 0.5 * (1.0 - factor) + factor;
            EXPECT_NEAR(factors[static_cast<std::size_t>(i)], expected, 0.01) << i;
        }
    }
}

TEST(Lfo, LockedPhaseIsWhereTheNextFrameStarts) {
    TestLfo lfo(Lfo::Wave::SawUp);
    lfo.play(777);
    lfo.lockPhase(0.25);
    const Samples locked = lfo.play(2).raw.left;
    EXPECT_EQ(locked[0], 511.0 / 1024.0) << "a quarter of 2047 steps, truncated";
    EXPECT_EQ(locked[1], 512.0 / 1024.0);
    lfo.lockPhase(-0.25); // before the song's start: read once, then the cycle begins
    const Samples before = lfo.play(2).raw.left;
    EXPECT_NEAR(cycleOf(before[0]), 0.75, 0.001);
    EXPECT_EQ(before[1], 0.0);
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
