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
constexpr float kUnity = 0.5F; // of gain, dry and wet

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

    void playInPlace(Buffer& buffer) {
        const auto channels = buffer.from(0);
        processDouble(channels.data(), channels.data(), static_cast<int>(buffer.left.size()));
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
    engine.setFilterSlope(kOff);
}

void everythingOn(ModFilterEngine& engine) {
    engine.setFilterSlope(1.0F);
    engine.setResonance(0.4F);
    engine.setFilterType(0.3F);
    engine.setLfoRate(0.3F);
    engine.setLfoSpread(0.2F);
    engine.setLfoRandomAmount(0.5F);
    engine.setEnvThreshold(0.5F);
    for (const auto turnOn :
         {&ModFilterEngine::setEnvToLfoRateSwitch, &ModFilterEngine::setEnvToLfoDepthSwitch,
          &ModFilterEngine::setLfoToCutoffSwitch, &ModFilterEngine::setLfoToGainSwitch,
          &ModFilterEngine::setEnvToCutoffSwitch, &ModFilterEngine::setEnvToGainSwitch,
          &ModFilterEngine::setLimiterSwitch, &ModFilterEngine::setSaturatorSwitch,
          &ModFilterEngine::setDrySwitch})
        (engine.*turnOn)(kOn);
    for (const auto turnUp :
         {&ModFilterEngine::setEnvToLfoRate, &ModFilterEngine::setEnvToLfoDepth,
          &ModFilterEngine::setLfoToCutoff, &ModFilterEngine::setLfoToGain,
          &ModFilterEngine::setEnvToCutoff, &ModFilterEngine::setEnvToGain,
          &ModFilterEngine::setLimiterLevel, &ModFilterEngine::setSaturatorDrive})
        (engine.*turnUp)(0.65F);
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
    const auto output = engine.play(1, -0.5, 0.7);
    EXPECT_NEAR(output[0], -0.5, 1e-15);
    EXPECT_NEAR(output[1], 0.7, 1e-15);
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

TEST(ModFilterEngine, FreezeHoldsCutoffAndGainWhileTheLfoMeterMoves) {
    TestEngine engine(everythingOn);
    engine.play(5000, 0.3, 0.2);
    const ModulationState before = engine.modulation();
    const double meterBefore = engine.meters().lfoLeft;
    engine.setFreeze(kOn);
    for (int block = 0; block < 20; ++block) {
        engine.play(997, 0.03 * block, 0.2);
        const ModulationState frozen = engine.modulation();
        EXPECT_EQ(frozen.cutoffLeftHz, before.cutoffLeftHz);
        EXPECT_EQ(frozen.cutoffRightHz, before.cutoffRightHz);
        EXPECT_EQ(frozen.lfoLeft, before.lfoLeft);
        EXPECT_EQ(frozen.envelopeGain, before.envelopeGain);
    }
    EXPECT_GT(std::abs(engine.meters().lfoLeft - meterBefore), 0.01);
    engine.setFreeze(kOff);
    engine.play(1, 0.3, 0.2);
    EXPECT_NE(engine.modulation().cutoffLeftHz, before.cutoffLeftHz);
    EXPECT_EQ(engine.modulation().lfoLeft, engine.meters().lfoLeft) << "at once";
}

TEST(ModFilterEngine, OutputsMayBeTheInputs) {
    TestEngine together(everythingOn), apart(everythingOn);
    Buffer input = noise<double>(10000, 3), expected(10000);
    const Buffer untouched = input;
    const auto in = input.from(0), out = expected.from(0);
    apart.processDouble(in.data(), out.data(), 10000);
    EXPECT_EQ(input, untouched);
    together.playInPlace(input);
    EXPECT_EQ(input, expected);
}

TEST(ModFilterEngine, BadSamplesLeaveNothingBehind) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double sample : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity,
                                1e300, std::numeric_limits<double>::lowest(), 4.9e-324})
        for (const float mode : {0.0F, 0.5F, 1.0F}) {
            SCOPED_TRACE(testing::Message() << sample << ", mode " << mode);
            TestEngine engine(everythingOn);
            engine.setEnvThresholdMode(mode);
            engine.start(kRateHz);
            Buffer bad = noise<double>(300, 4), later(4 * kSecond);
            bad.left[100] = bad.right[100] = bad.left[250] = sample;
            engine.playInPlace(bad);
            engine.playInPlace(later);
            EXPECT_TRUE(bad.isFinite() && later.isFinite());
            EXPECT_LT(std::abs(later.left.back()), 1e-6);
            const MeterSnapshot meters = engine.meters();
            EXPECT_TRUE(std::isfinite(meters.dryPeak) && std::isfinite(meters.wetPeak) &&
                        std::isfinite(meters.envelopeLevel));
        }
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

} // namespace
} // namespace pedl
