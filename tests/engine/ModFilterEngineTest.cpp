#include "engine/ModFilterEngine.h"

#include "tests/engine/Signals.h"
#include "tests/support/StereoBuffer.h"

#include <gtest/gtest.h>

#include <limits>

namespace pedl {
namespace {

using namespace test;
using Buffer = StereoBuffer<double>;

constexpr double kRateHz = 44100.0;
constexpr int kSecond = 44100;
constexpr std::uint32_t kSeed = 12;
constexpr float kOff = 0.0F, kOn = 1.0F;
constexpr float kFilterOff = 0.0F, kFilter24Db = 1.0F;
constexpr float kUnity = 0.5F; // of gain, dry and wet
constexpr float kSquare = 0.7F, kSaw = 0.4F;
constexpr float kModulationOff = 1.0F;

/// An engine that has been set, and then started at a sample rate.
struct TestEngine : ModFilterEngine {
    explicit TestEngine(void (*set)(ModFilterEngine&), double sampleRateHz = kRateHz)
        : ModFilterEngine(kSeed) {
        // The limiter and the saturator are off from the start.
        setWetSwitch(kOn);
        setWetLevel(kUnity);
        setInputGain(kUnity);
        set(*this);
        start(sampleRateHz);
    }

    void start(double sampleRateHz) {
        setSampleRate(sampleRateHz);
        reset();
        reinitialise(kSeed);
    }

    template <typename Sample> void playInPlace(StereoBuffer<Sample>& buffer) {
        const auto channels = buffer.from(0);
        const auto frames = static_cast<std::int32_t>(buffer.left.size());
        if constexpr (std::is_same_v<Sample, float>)
            processFloat(channels.data(), channels.data(), frames);
        else
            processDouble(channels.data(), channels.data(), frames);
    }

    /// Plays a constant and returns its last frame.
    std::array<double, 2> play(int frames, double left, double right) {
        Buffer buffer(static_cast<std::size_t>(frames));
        std::fill(buffer.left.begin(), buffer.left.end(), left);
        std::fill(buffer.right.begin(), buffer.right.end(), right);
        playInPlace(buffer);
        return {buffer.left.back(), buffer.right.back()};
    }

    MeterSnapshot meters() {
        MeterSnapshot snapshot;
        fillMeterSnapshot(snapshot);
        return snapshot;
    }
};

void filterOff(ModFilterEngine& engine) {
    engine.setFilterSlope(kFilterOff);
}

void everythingOn(ModFilterEngine& engine) {
    engine.setFilterSlope(kFilter24Db);
    engine.setResonance(0.4F);
    engine.setCutoff(0.5F);
    engine.setFilterType(0.3F);
    engine.setFilterSaturation(0.3F);
    engine.setLfoRate(0.3F);
    engine.setLfoSpread(0.2F);
    engine.setLfoRandomAmount(0.5F);
    engine.setEnvAttack(0.2F);
    engine.setEnvRelease(0.3F);
    engine.setEnvAttack(0.2F);
    engine.setEnvRange(0.5F);
    engine.setEnvThreshold(0.5F);
    engine.setEnvToLfoRateSwitch(kOn);
    engine.setEnvToLfoRate(0.8F);
    engine.setEnvToLfoDepthSwitch(kOn);
    engine.setEnvToLfoDepth(0.7F);
    engine.setLfoToCutoffSwitch(kOn);
    engine.setLfoToCutoff(0.6F);
    engine.setLfoToGainSwitch(kOn);
    engine.setLfoToGain(0.7F);
    engine.setEnvToCutoffSwitch(kOn);
    engine.setEnvToCutoff(0.6F);
    engine.setEnvToGainSwitch(kOn);
    engine.setEnvToGain(0.6F);
    engine.setLimiterSwitch(kOn);
    engine.setLimiterLevel(0.6F);
    engine.setSaturatorSwitch(kOn);
    engine.setSaturatorDrive(0.6F);
    engine.setDrySwitch(kOn);
    engine.setDryLevel(0.3F);
}

TEST(ModFilterEngine, BypassPassesTheRawInputWhateverTheGains) {
    TestEngine engine([](ModFilterEngine& set) {
        everythingOn(set);
        set.setInputGain(1.0F);
        set.setWetLevel(1.0F);
        set.setDryLevel(1.0F);
    });
    engine.setPower(kOn);
    engine.play(kSecond, 0.3, -0.2);
    Buffer buffer = noise<double>(1000, 1);
    const Buffer input = buffer;
    engine.playInPlace(buffer);
    for (std::size_t i = 0; i < input.left.size(); ++i) {
        ASSERT_NEAR(buffer.left[i], input.left[i], 1e-15);
        ASSERT_NEAR(buffer.right[i], input.right[i], 1e-15);
    }
}

TEST(ModFilterEngine, BypassFadesInWithinFortyMilliseconds) {
    for (const double rateHz : {44100.0, 96000.0}) {
        TestEngine engine([](ModFilterEngine& set) { set.setWetSwitch(kOff); }, rateHz);
        EXPECT_NEAR(engine.play(1000, 1.0, 1.0)[0], 0.0, 1e-30);
        engine.setPower(kOn);
        EXPECT_NEAR(engine.play(static_cast<int>(0.04 * rateHz), 1.0, 1.0)[0], 0.9, 0.03);
    }
}

TEST(ModFilterEngine, WithoutFilterTheInputComesOutTimesGainTimesOnePlusDry) {
    struct Row {
        float gain, dry;
        double factor;
    };
    const double double6Db = std::pow(10.0, 0.3); // 48 dB * 0.125
    for (const Row& row :
         {Row{0.5F, 0.5F, 2.0}, Row{0.5F, 0.25F, 1.25}, Row{0.625F, 1.0F, double6Db * 5.0},
          Row{0.375F, 0.0F, 1.0 / double6Db}}) {
        SCOPED_TRACE(testing::Message() << "gain " << row.gain << ", dry " << row.dry);
        TestEngine engine(filterOff);
        engine.setInputGain(row.gain);
        engine.setDrySwitch(kOn);
        engine.setDryLevel(row.dry);
        engine.play(kSecond, 0.0, 0.0);
        const auto output = engine.play(1, 0.5, -0.25);
        EXPECT_NEAR(output[0], 0.5 * row.factor, 1e-6); // the gain itself is a float
        EXPECT_NEAR(output[1], -0.25 * row.factor, 1e-6);
    }
}

TEST(ModFilterEngine, ReinitialiseEndsEveryRampButThatOfTheInputGain) {
    TestEngine engine(filterOff);
    engine.setInputGain(1.0F); // 15.85
    engine.setWetLevel(1.0F);  // 4
    engine.start(kRateHz);
    const double first = engine.play(1, 0.001, 0.0)[0];
    EXPECT_GT(first, 0.004);
    EXPECT_LT(first, 4.0 * 0.004) << "one tick on its way from 1 to 15.85";
    EXPECT_NEAR(db(engine.play(kSecond, 0.001, 0.0)[0] / 0.004), 24.0, 0.001);
}

TEST(ModFilterEngine, RoutingSetsWhatTheLimiterHolds) {
    struct Row {
        const char* story;
        float routing;
        double output, wetPeak;
    };
    // A constant 1 goes in dry and, twice as loud, wet; the ceiling is -21 dB.
    const double ceiling = std::pow(10.0, -21.0 / 20.0);
    TestEngine engine([](ModFilterEngine& set) {
        filterOff(set);
        set.setWetLevel(std::sqrt(0.5F));
        set.setDrySwitch(kOn);
        set.setDryLevel(kUnity);
        set.setLimiterSwitch(kOn);
        set.setLimiterLevel(1.0F);
    });
    for (const Row& row : {Row{"before the wet level", 0.0F, 2.0 * ceiling + 1.0, ceiling},
                           Row{"behind the wet level", 0.5F, ceiling + 1.0, 1.0},
                           Row{"behind the mix", 1.0F, ceiling, 1.0}}) {
        SCOPED_TRACE(row.story);
        engine.setRouting(row.routing);
        engine.play(kSecond, 1.0, 1.0);
        engine.meters(); // forgets the way there
        EXPECT_NEAR(db(engine.play(1000, 1.0, 1.0)[0] / row.output), 0.0, 0.001);
        EXPECT_NEAR(db(engine.meters().wetPeak / row.wetPeak), 0.0, 0.001);
    }
}

TEST(ModFilterEngine, RoutingSwitchesAtOnce) {
    TestEngine engine([](ModFilterEngine& set) {
        filterOff(set);
        set.setWetSwitch(kOff);
        set.setDrySwitch(kOn);
        set.setDryLevel(kUnity);
        set.setSaturatorSwitch(kOn);
        set.setSaturatorDrive(1.0F);
    });
    EXPECT_NEAR(engine.play(1000, 1.0, 1.0)[0], 1.0, 1e-6) << "dry passes beside the saturator";
    engine.setRouting(1.0F);
    EXPECT_NEAR(engine.play(1, 1.0, 1.0)[0], std::pow(10.0, -18.0 / 20.0), 1e-4);
    engine.setRouting(0.5F);
    EXPECT_NEAR(engine.play(1, 1.0, 1.0)[0], 1.0, 1e-6);
}

TEST(ModFilterEngine, FreezeHoldsCutoffAndGainWhileTheLfoMeterMoves) {
    TestEngine engine(everythingOn);
    engine.play(5000, 0.3, 0.2);
    const ModulationState before = engine.modulation();
    const MeterSnapshot metersBefore = engine.meters();
    engine.setFreeze(kOn);
    for (int block = 0; block < 20; ++block) {
        engine.play(997, 0.03 * block, 0.2);
        const ModulationState frozen = engine.modulation();
        EXPECT_EQ(frozen.cutoffLeftHz, before.cutoffLeftHz);
        EXPECT_EQ(frozen.cutoffRightHz, before.cutoffRightHz);
        EXPECT_EQ(frozen.lfoLeft, before.lfoLeft);
        EXPECT_EQ(frozen.envelopeGain, before.envelopeGain);
    }
    EXPECT_GT(std::abs(engine.meters().lfoLeft - metersBefore.lfoLeft), 0.01);
    engine.setFreeze(kOff);
    engine.play(1, 0.3, 0.2);
    EXPECT_NE(engine.modulation().cutoffLeftHz, before.cutoffLeftHz);
    EXPECT_EQ(engine.modulation().lfoLeft, engine.meters().lfoLeft) << "at once";
}

TEST(ModFilterEngine, LfoMovesTheCutoffOverItsDepth) {
    TestEngine engine([](ModFilterEngine& set) {
        set.setCutoff(0.4F);
        set.setLfoType(kSquare);
        set.setLfoRate(0.0F); // 0.01 Hz: up for 50 s
        set.setLfoToCutoffSwitch(kOn);
        set.setLfoToCutoff(std::sqrt(0.4F)); // 0.2 of the range
    });
    engine.play(kSecond, 0.1, 0.1);
    EXPECT_NEAR(engine.modulation().cutoffLeftHz, 20.0 * std::pow(1000.0, 0.6), 0.5);
    engine.setLfoSpread(0.0F); // half a cycle: the right channel is down
    engine.start(kRateHz);
    engine.play(kSecond, 0.1, 0.1);
    EXPECT_NEAR(engine.modulation().cutoffLeftHz, 20.0 * std::pow(1000.0, 0.6), 0.5);
    EXPECT_NEAR(engine.modulation().cutoffRightHz, 20.0 * std::pow(1000.0, 0.2), 0.5);
}

TEST(ModFilterEngine, LfoMovesTheGainBetweenASixtiethOfADecibelAndTwelve) {
    TestEngine engine([](ModFilterEngine& set) {
        filterOff(set);
        set.setLfoType(kSquare);
        set.setLfoRate(0.0F);
        set.setLfoToGainSwitch(kOn);
    });
    struct Row {
        float amount;
        double exponent; // of two, 10 (2v - 1)^2 with its sign
    };
    for (const Row& row :
         {Row{0.0F, -10.0}, Row{0.25F, -2.5}, Row{0.5F, 0.0}, Row{0.75F, 2.5}, Row{1.0F, 10.0}}) {
        engine.setLfoToGain(row.amount);
        const double gain = std::tanh(0.25 * std::exp2(row.exponent)) / std::tanh(0.25);
        EXPECT_NEAR(db(engine.play(2 * kSecond, 0.5, 0.5)[0] / (0.5 * gain)), 0.0, 0.001)
            << row.exponent;
    }
}

TEST(ModFilterEngine, ModulationOffSoundsAsAllModulationSwitchesOff) {
    const auto plain = [](ModFilterEngine& set) {
        everythingOn(set);
        set.setLimiterSwitch(kOff); // it remembers its start for seconds
        set.setLfoToCutoffSwitch(kOff);
        set.setLfoToGainSwitch(kOff);
        set.setEnvToCutoffSwitch(kOff);
        set.setEnvToGainSwitch(kOff);
    };
    const auto off = [](ModFilterEngine& set) {
        everythingOn(set);
        set.setLimiterSwitch(kOff);
        set.setModulation(kModulationOff);
    };
    TestEngine expected(plain), actual(off);
    Buffer wanted = noise<double>(3 * kSecond, 3), got = wanted;
    expected.playInPlace(wanted);
    actual.playInPlace(got);
    for (std::size_t i = 2 * kSecond; i < wanted.left.size(); ++i)
        ASSERT_NEAR(got.left[i], wanted.left[i], 1e-6);
}

TEST(ModFilterEngine, MetersShowPeaksOnceAndLiveValuesAlways) {
    TestEngine engine([](ModFilterEngine& set) {
        filterOff(set);
        set.setSaturatorSwitch(kOn);
        set.setSaturatorDrive(0.5F);
        set.setLfoRate(0.5F);
    });
    EXPECT_EQ(engine.meters().lfoLeft, -1.0);
    EXPECT_EQ(engine.meters().lfoRight, -1.0);
    engine.play(100, 0.8, -0.4);
    engine.play(100, 0.1, 0.1);
    const MeterSnapshot first = engine.meters();
    EXPECT_NEAR(first.dryPeak, 0.3, 1e-6);
    EXPECT_NEAR(first.wetPeak, 0.5 * (std::tanh(0.8) + std::tanh(0.4)), 1e-6);
    EXPECT_NEAR(first.saturationLevel, 1.2 * 0.251188643, 1e-6);
    EXPECT_EQ(first.limiterGain, 1.0) << "switched off";
    EXPECT_NEAR(first.lfoRateHz, 0.01 + 14.99 * 0.5, 1e-9);
    EXPECT_GT(first.lfoLeft, -1.0);
    const MeterSnapshot second = engine.meters();
    for (const double peak : {second.dryPeak, second.wetPeak, second.saturationLevel,
                              second.envelopeLevel, second.reservedValue})
        EXPECT_EQ(peak, 0.0);
    EXPECT_EQ(second.lfoLeft, first.lfoLeft);
    engine.setSaturatorSwitch(kOff);
    engine.setLimiterSwitch(kOn);
    engine.setLimiterLevel(1.0F);
    engine.play(kSecond, 1.0, 1.0);
    EXPECT_EQ(engine.meters().saturationLevel, 0.0);
    EXPECT_NEAR(db(engine.meters().limiterGain), -21.0, 0.01);
}

TEST(ModFilterEngine, EnvelopeMeterIsHalvedInModeAround) {
    for (const float mode : {0.0F, 1.0F}) {
        TestEngine engine([](ModFilterEngine& set) {
            set.setEnvRange(std::sqrt(1.0F / 3.0F));
            set.setEnvThreshold(1.0F);
        });
        engine.setEnvThresholdMode(mode);
        engine.start(kRateHz);
        const double tenfold = 10.0 / std::sqrt(2.0 * 0.707);
        engine.play(kSecond, tenfold, tenfold);
        EXPECT_NEAR(engine.meters().envelopeLevel, mode == 0.0F ? 1.0 : 0.5, 0.001);
    }
}

template <typename Sample>
StereoBuffer<Sample> playInBlocks(TestEngine& engine, StereoBuffer<Sample> buffer,
                                  std::uint32_t seed) {
    Random random(seed);
    for (std::size_t first = 0; first < buffer.left.size();) {
        const auto rest = static_cast<int>(buffer.left.size() - first);
        const int frames = std::min(random.integer(0, 300), rest);
        const auto channels = buffer.from(first);
        if constexpr (std::is_same_v<Sample, float>)
            engine.processFloat(channels.data(), channels.data(), frames);
        else
            engine.processDouble(channels.data(), channels.data(), frames);
        first += static_cast<std::size_t>(frames);
    }
    return buffer;
}

TEST(ModFilterEngine, CutOfTheStreamAndKindOfBufferDoNotMatter) {
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        SCOPED_TRACE(seed);
        const Buffer input = [&] {
            Buffer floats(10000);
            const auto drawn = noise<float>(10000, seed);
            std::copy(drawn.left.begin(), drawn.left.end(), floats.left.begin());
            std::copy(drawn.right.begin(), drawn.right.end(), floats.right.begin());
            return floats;
        }();
        TestEngine whole(everythingOn), cut(everythingOn), narrow(everythingOn),
            apart(everythingOn);
        Buffer expected = input;
        whole.playInPlace(expected);
        EXPECT_EQ(playInBlocks(cut, input, seed), expected);

        StereoBuffer<float> rounded(10000);
        for (std::size_t i = 0; i < 10000; ++i) {
            rounded.left[i] = static_cast<float>(expected.left[i]);
            rounded.right[i] = static_cast<float>(expected.right[i]);
        }
        EXPECT_EQ(playInBlocks(narrow, noise<float>(10000, seed), seed + 100), rounded);

        Buffer from = input, to(10000);
        const auto in = from.from(0);
        const auto out = to.from(0);
        apart.processDouble(in.data(), out.data(), 10000);
        EXPECT_EQ(to, expected);
        EXPECT_EQ(from, input);
    }
}

TEST(ModFilterEngine, BadSamplesLeaveNothingBehind) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    struct Row {
        const char* story;
        double sample;
    };
    for (const Row& row :
         {Row{"NaN", std::numeric_limits<double>::quiet_NaN()}, Row{"infinite", kInfinity},
          Row{"minus infinite", -kInfinity}, Row{"huge", 1e300},
          Row{"largest", -1.7976931348623157e308}, Row{"denormal", 4.9e-324}})
        for (const float mode : {0.0F, 0.5F, 1.0F}) {
            SCOPED_TRACE(testing::Message() << row.story << ", mode " << mode);
            TestEngine hit(everythingOn), spared(everythingOn);
            for (TestEngine* engine : {&hit, &spared}) {
                engine->setEnvThresholdMode(mode);
                engine->start(kRateHz);
            }
            Buffer bad = noise<double>(300, 4);
            bad.left[100] = bad.right[100] = bad.left[250] = row.sample;
            hit.playInPlace(bad);
            EXPECT_TRUE(bad.isFinite());
            Buffer later(4 * kSecond);
            hit.playInPlace(later);
            EXPECT_TRUE(later.isFinite());
            EXPECT_LT(std::abs(later.left.back()), 1e-6);
            const MeterSnapshot meters = hit.meters();
            EXPECT_TRUE(std::isfinite(meters.dryPeak) && std::isfinite(meters.wetPeak) &&
                        std::isfinite(meters.envelopeLevel));
        }
}

TEST(ModFilterEngine, NaNInOneChannelCountsAsSilenceThereAlone) {
    TestEngine engine(filterOff);
    const auto output = engine.play(100, std::numeric_limits<double>::quiet_NaN(), 0.5);
    EXPECT_EQ(output[0], 0.0);
    EXPECT_NEAR(output[1], 0.5, 1e-6);
}

TEST(ModFilterEngine, SlowStreamsAreProcessedAsIfTheyRanAtTheLowestRate) {
    const auto output = [](double sampleRateHz) {
        TestEngine engine(everythingOn, sampleRateHz);
        Buffer buffer = noise<double>(3000, 5);
        engine.playInPlace(buffer);
        return buffer;
    };
    for (const double slowHz : {22050.0, 1.0, 0.0, -1.0})
        EXPECT_EQ(output(slowHz), output(44100.0)) << slowHz;
    EXPECT_EQ(output(768000.0), output(384000.0));
    EXPECT_NE(output(48000.0), output(44100.0));
}

TEST(ModFilterEngine, BlockOfNoFramesSetsThePhaseAndTouchesNothingElse) {
    TestEngine engine([](ModFilterEngine& set) {
        set.setLfoType(kSaw);
        set.setLfoRate(0.0F);
        set.setLfoFilter(0.0F);
    });
    engine.play(1000, 0.1, 0.1);
    engine.setPhaseSync(true, 0.25);
    engine.processDouble(nullptr, nullptr, 0);
    engine.setPhaseSync(false, 0.0);
    engine.play(kSecond, 0.1, 0.1);
    EXPECT_NEAR(engine.meters().lfoLeft, 0.5 + 2.0 * 0.01, 0.01) << "a second on at 0.01 Hz";
}

TEST(ModFilterEngine, LockHoldsEachBlocksStartUnlessWaveOrRateForbidIt) {
    struct Row {
        const char* story;
        float wave, rateSwitch, rateAmount;
        bool isLocked;
    };
    for (const Row& row :
         {Row{"saw", kSaw, kOff, 1.0F, true}, Row{"a hair of rate", kSaw, kOn, 0.502F, true},
          Row{"moved rate", kSaw, kOn, 0.503F, false},
          Row{"random wave", 1.0F, kOff, 0.5F, false}}) {
        SCOPED_TRACE(row.story);
        TestEngine engine([](ModFilterEngine& set) { set.setLfoFilter(0.0F); });
        engine.setLfoType(row.wave);
        engine.setEnvToLfoRateSwitch(row.rateSwitch);
        engine.setEnvToLfoRate(row.rateAmount);
        engine.setLfoRate(1.0F);
        engine.setPhaseSync(true, 0.25);
        double least = 2.0, most = -2.0;
        for (int block = 0; block < 2000; ++block) {
            engine.play(16, 0.0, 0.0);
            if (block > 500) { // the smoothed wave has arrived
                const double wave = engine.meters().lfoLeft;
                least = std::min(least, wave);
                most = std::max(most, wave);
            }
        }
        EXPECT_EQ(most - least < 0.02, row.isLocked);
    }
}

} // namespace
} // namespace pedl
