#include "engine/EnvelopeFollower.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

constexpr double kRateHz = 44100.0;
constexpr double kAbove = 0.0, kBelow = 0.5, kAround = 1.0;
constexpr double kUnitRange = 0.5773502691896258; // range 1 outside of mode "below"
constexpr ControlTick kAtOnce{.slow = 1.0, .fast = 1.0, .nudge = 0.0};

struct Said {
    double level, depth, cutoffOffset, rateHz, gain;
};

/// A follower with the lowest factor on the input, so that a root of 1 is the threshold, and the
/// quickest times.
struct Follower : EnvelopeFollower {
    explicit Follower(double mode, double range = kUnitRange, double threshold = 1.0) {
        setThreshold(threshold);
        setMode(mode);
        setRange(range);
        setAttackTime(1.0);
        setReleaseTime(3.0);
        reinitialise();
    }

    /// What is said of each frame of a constant input whose measured root is `root`.
    std::vector<Said> follow(int frames, double root, double normalisedRate = 0.0) {
        const double amplitude = root / std::sqrt(2.0 * 0.707); // both channels together
        for (double& sample : input_.at)
            sample = amplitude;
        std::vector<Said> said;
        inStretches(frames, [&](int, int length) {
            process(input_, normalisedRate, 1.0, length, output_);
            for (int i = 0; i < length; ++i)
                said.push_back({output_.level.at[i], output_.depth.at[i],
                                output_.cutoffOffset.at[i], output_.rateHz.at[i],
                                output_.gain.at[i]});
        });
        return said;
    }

    Said settleAt(double root, double normalisedRate = 0.0) {
        return follow(22050, root, normalisedRate).back();
    }

private:
    StereoStretch input_;
    EnvelopeOutput output_;
};

TEST(EnvelopeFollower, SilenceRestsAtTheLevelOfItsMode) {
    struct Row {
        const char* story;
        double mode, range, first, settled, cutoffLevel;
    };
    const double fullAround = 3.0 * 0.5 * std::log10(0.5);
    for (const Row& row :
         {Row{"above: at the threshold", kAbove, 1.0, 0.0, 0.0, 0.0},
          Row{"below: the largest effect", kBelow, 1.0, 4.0, 4.0, -4.0},
          Row{"below, no range: no effect", kBelow, 0.0, 0.0, 0.0, 0.0},
          Row{"around: half way, then the floor", kAround, 1.0, fullAround, -3.0, -3.0}}) {
        SCOPED_TRACE(row.story);
        Follower follower(row.mode, row.range);
        follower.setReleaseTime(3000.0);
        follower.setCutoffAmount(1.0); // half of the level
        follower.reinitialise();
        EXPECT_NEAR(follower.follow(1, 0.0).front().level, row.first, 0.001);
        follower.setReleaseTime(3.0);
        const Said settled = follower.settleAt(0.0);
        EXPECT_NEAR(settled.level, row.settled, 0.001);
        EXPECT_NEAR(settled.cutoffOffset, 0.5 * row.cutoffLevel, 0.001);
    }
}

TEST(EnvelopeFollower, LevelCountsDecadesFromTheThreshold) {
    for (const double decades : {0.25, 0.5, 1.0, 2.0}) {
        const double root = std::pow(10.0, decades);
        EXPECT_NEAR(Follower(kAbove).settleAt(root).level, decades, 1e-4);
        EXPECT_NEAR(Follower(kAbove).settleAt(1.0 / root).level, 0.0, 1e-4);
        EXPECT_NEAR(Follower(kAround).settleAt(root).level, decades, 1e-4);
        EXPECT_NEAR(Follower(kAround, 1.0).settleAt(root).level, 3.0 * decades, 1e-4);
        EXPECT_NEAR(Follower(kAround).settleAt(1.0 / root).level, -std::min(decades, 1.0), 1e-4);
        EXPECT_NEAR(Follower(kBelow).settleAt(root).level, 0.0, 1e-4);
    }
    // Below: (root - 1) * range + 2 halves, the range being 3 sqrt(v); 2 at v = 4 / 9.
    EXPECT_NEAR(Follower(kBelow, 4.0 / 9.0).settleAt(0.1).level, 1.0, 1e-3);
    // The whole span of the threshold is 96 dB of power.
    EXPECT_NEAR(Follower(kAbove, kUnitRange, 0.0).settleAt(1.0).level, 0.5 * std::log10(63096.0),
                1e-4);
}

TEST(EnvelopeFollower, OneChannelAloneCountsHalf) {
    Follower follower(kAround);
    StereoStretch left;
    for (int i = 0; i < kStretchFrames; ++i)
        left.at[2 * i] = 10.0 / std::sqrt(0.707);
    EnvelopeOutput output;
    for (int i = 0; i < 100; ++i)
        follower.process(left, 0.0, 1.0, kStretchFrames, output);
    EXPECT_NEAR(output.level.at[0], 1.0, 1e-4);
}

/// Power behind the smoothers in mode "around" with range 1.
double powerOf(const Said& said) {
    return std::pow(10.0, 2.0 * said.level);
}

TEST(EnvelopeFollower, PowerMovesNineTenthsOfItsWayInTheStatedTimeWhateverTheShape) {
    for (const double rateHz : {44100.0, 96000.0})
        for (const double shape : {0.0, 0.3, 0.5, 0.8, 0.95, 1.0, 2.0}) {
            SCOPED_TRACE(testing::Message() << rateHz << " Hz, shape " << shape);
            Follower follower(kAround);
            follower.setAttackTime(50.0);
            follower.setReleaseTime(200.0);
            follower.setAttackShape(shape);
            follower.setSampleRate(rateHz);
            follower.setHoldTime(0.0);
            follower.reinitialise();
            const auto rising = follower.follow(static_cast<int>(0.5 * rateHz), 30.0);
            EXPECT_NEAR(powerOf(rising[static_cast<std::size_t>(0.05 * rateHz)]) / 900.0, 0.9,
                        0.01);
            const auto falling = follower.follow(static_cast<int>(0.5 * rateHz), 0.0);
            EXPECT_NEAR(powerOf(falling[static_cast<std::size_t>(0.2 * rateHz)]) / 900.0, 0.1,
                        0.01);
        }
}

TEST(EnvelopeFollower, ShapeTurnsSmoothlyFromOnePoleToASoftStart) {
    const auto earlyPower = [](double shape) {
        Follower follower(kAround);
        follower.setAttackTime(50.0);
        follower.setAttackShape(shape);
        return powerOf(follower.follow(static_cast<int>(0.010 * kRateHz), 30.0).back()) / 900.0;
    };
    double previous = earlyPower(0.0);
    EXPECT_NEAR(previous, 1.0 - std::pow(0.1, 0.2), 0.01) << "one pole";
    for (int step = 1; step <= 200; ++step) {
        const double power = earlyPower(step / 200.0);
        EXPECT_LT(power, previous + 1e-4) << step;
        EXPECT_GT(power, previous - 0.02) << step;
        previous = power;
    }
    constexpr double kWay = kPi * 1.238 * 0.2;
    EXPECT_NEAR(previous, 1.0 - std::exp(-kWay) * (1.0 + kWay), 0.01) << "two equal poles";
    EXPECT_EQ(earlyPower(1.5), earlyPower(1.0));
}

/// The frame after which the level falls, behind a peak of one frame.
std::ptrdiff_t lastHeldFrame(EnvelopeFollower& follower) {
    StereoStretch input;
    EnvelopeOutput output;
    Samples levels;
    input.at[0] = 10.0;
    inStretches(8000, [&](int, int length) {
        follower.process(input, 0.0, 1.0, length, output);
        levels.insert(levels.end(), output.level.at, output.level.at + length);
        input.at[0] = 0.0;
    });
    return std::max_element(levels.begin(), levels.end()) - levels.begin();
}

TEST(EnvelopeFollower, PeakIsHeldForTheHoldTimeTimesItsExtension) {
    struct Row {
        double extension;
        int frames; // 441 frames of 10 ms times 0..1 in the lower half, 1..4 in the upper
    };
    for (const Row& row :
         {Row{0.0, 0}, Row{0.25, 220}, Row{0.5, 441}, Row{0.75, 1102}, Row{1.0, 1764}}) {
        Follower follower(kAround);
        follower.setAttackTime(50.0);
        follower.setHoldTime(10.0);
        follower.setExtension(row.extension);
        EXPECT_EQ(lastHeldFrame(follower), row.frames) << "extension " << row.extension;
    }
}

TEST(EnvelopeFollower, HoldKeepsItsFramesWhenTheRateChangesUntilItIsSetAgain) {
    Follower follower(kAround);
    follower.setHoldTime(10.0);
    follower.setExtension(0.5);
    follower.setSampleRate(88200.0);
    follower.setAttackTime(50.0);
    EXPECT_EQ(lastHeldFrame(follower), 441);
    follower.setExtension(0.5);
    follower.reinitialise();
    EXPECT_EQ(lastHeldFrame(follower), 882);
}

TEST(EnvelopeFollower, LouderPeakStartsTheHoldAnewAndAQuieterOneDoesNot) {
    const auto levelAfterSecondPeak = [](double secondPeak) {
        Follower follower(kAround);
        follower.setHoldTime(10.0); // 441 frames
        follower.setExtension(0.5);
        follower.follow(1, 10.0);
        follower.follow(299, 0.0);
        follower.follow(1, secondPeak);
        return follower.follow(350, 0.0).back().level; // 650 frames after the first, 350 after it
    };
    EXPECT_LT(levelAfterSecondPeak(9.0), 0.3);
    EXPECT_NEAR(levelAfterSecondPeak(20.0), std::log10(20.0), 0.01);
}

TEST(EnvelopeFollower, ReinitialiseForgetsAHeldPeak) {
    Follower follower(kAround);
    follower.setHoldTime(1000.0);
    follower.follow(10, 100.0);
    follower.reinitialise();
    EXPECT_LT(follower.follow(100, 0.0).back().level, 0.0);
}

TEST(EnvelopeFollower, DepthFollowsItsLawBetweenZeroAndOne) {
    struct Row {
        const char* story;
        double amount, on, level, depth;
    };
    const double bent = std::pow(0.5, 1.4);
    for (const Row& row :
         {Row{"off", 0.0, 0.0, 0.5, 1.0}, Row{"middle: none", 0.5, 1.0, 0.5, 1.0},
          Row{"full down, at the threshold", 0.0, 1.0, 0.0, 1.0},
          Row{"full down", 0.0, 1.0, 0.1, 0.6}, Row{"full down, past the end", 0.0, 1.0, 0.5, 0.0},
          Row{"full up, at the threshold", 1.0, 1.0, 0.0, 0.0}, Row{"full up", 1.0, 1.0, 0.1, 0.4},
          Row{"full up, past the end", 1.0, 1.0, 0.5, 1.0},
          Row{"half down", 0.25, 1.0, 0.2, 1.0 - 4.0 * bent * 0.2},
          Row{"half up", 0.75, 1.0, 0.05, 4.0 * bent * 0.05 + 1.0 - bent}}) {
        Follower follower(kAbove);
        follower.setDepthAmount(row.amount);
        follower.setDepthSwitch(row.on);
        follower.reinitialise();
        EXPECT_NEAR(follower.settleAt(std::pow(10.0, row.level)).depth, row.depth, 0.001)
            << row.story;
    }
}

TEST(EnvelopeFollower, RateFollowsTheSquareOfTheLevelDownToItsFloor) {
    struct Row {
        const char* story;
        double amount, on, level, rateHz;
    };
    for (const Row& row : {Row{"off", 1.0, 0.0, 0.5, 0.01 + 14.99 * 0.2},
                           Row{"up", 1.0, 1.0, 0.5, 0.01 + 14.99 * (0.2 + 0.25)},
                           Row{"up below the threshold", 1.0, 1.0, -0.5, 0.01 + 14.99 * 0.45},
                           Row{"a little down", 0.4, 1.0, 0.5, 0.01 + 14.99 * (0.2 - 0.05)},
                           Row{"down to the floor", 0.0, 1.0, 0.5, 0.01}}) {
        Follower follower(kAround);
        follower.setRateAmount(row.amount);
        follower.setRateSwitch(row.on);
        EXPECT_NEAR(follower.settleAt(std::pow(10.0, row.level), 0.2).rateHz, row.rateHz, 0.005)
            << row.story;
    }
}

TEST(EnvelopeFollower, GainIsTheBaseToOneLessTheExponent) {
    // Exponent 2 at amount 1, 1 in the middle, 1/8 at 0; the floor of mode "below" moves with the
    // threshold.
    struct Row {
        const char* story;
        double mode, threshold, amount, on, root, gainBase, exponent;
    };
    const double floorHigh = 0.248 - 63095.0 * 0.183 / 63096.0;
    for (const Row& row :
         {Row{"off", kAbove, 1.0, 1.0, 0.0, 2.0, 2.0, 1.0},
          Row{"above, middle", kAbove, 1.0, 0.5, 1.0, 2.0, 2.0, 1.0},
          Row{"above, compressed", kAbove, 1.0, 1.0, 1.0, 2.0, 2.0, 2.0},
          Row{"above, expanded", kAbove, 1.0, 0.0, 1.0, 2.0, 2.0, 0.125},
          Row{"around, compressed", kAround, 1.0, 1.0, 1.0, 1.0, 2.0, 2.0},
          Row{"below, high threshold, silence", kBelow, 1.0, 1.0, 1.0, 0.0, floorHigh, 2.0},
          Row{"below, low threshold, silence", kBelow, 0.0, 0.0, 1.0, 0.0, 0.248, 0.125}}) {
        Follower follower(row.mode, row.mode == kBelow ? 1.0 : kUnitRange, row.threshold);
        follower.setGainAmount(row.amount);
        follower.setGainSwitch(row.on);
        follower.reinitialise();
        EXPECT_NEAR(db(follower.settleAt(row.root).gain),
                    db(std::pow(row.gainBase, 1.0 - row.exponent)), 0.01)
            << row.story;
    }
}

TEST(EnvelopeFollower, MakeupTakesAllBackFromExpansionAndHalfFromCompression) {
    struct Row {
        const char* story;
        double mode, threshold, amount, makeupDb;
    };
    const double above = std::sqrt(63096.0) / 4.0; // base at threshold 0.5 and range 1
    for (const Row& row :
         {Row{"expanded", kAbove, 0.5, 0.0, -0.5 * 0.875 * db(above)},
          Row{"compressed", kAbove, 0.5, 1.0, 0.25 * db(above)},
          Row{"middle", kAbove, 0.5, 0.5, 0.0}, Row{"high threshold", kAbove, 1.0, 1.0, 0.0},
          Row{"below", kBelow, 0.5, 1.0, 0.0},
          Row{"around", kAround, 0.5, 1.0, 0.25 * db(above + 0.5)}}) {
        Follower follower(row.mode, kUnitRange, row.threshold);
        follower.setGainSwitch(1.0);
        follower.setGainAmount(row.amount);
        follower.reinitialise();
        EXPECT_EQ(follower.makeup(), 1.0) << "until the first tick";
        follower.tick(kAtOnce, 1.0);
        EXPECT_NEAR(db(follower.makeup()), row.makeupDb, 0.001) << row.story;
        follower.tick(kAtOnce, 0.0);
        EXPECT_NEAR(db(follower.makeup()), 0.0, 1e-9) << row.story << ", modulation off";
    }
}

TEST(EnvelopeFollower, CutoffSwitchAndModulationTakeHoldAtTheTicks) {
    Follower follower(kAbove);
    follower.setCutoffAmount(0.0); // minus half of the level
    follower.reinitialise();
    const auto offset = [&] { return follower.settleAt(10.0).cutoffOffset; };
    EXPECT_NEAR(offset(), -0.5, 1e-3) << "as set, whether switched on or not";
    follower.tick(kAtOnce, 1.0);
    EXPECT_NEAR(offset(), 0.0, 1e-9) << "switched off";
    follower.setCutoffSwitch(1.0);
    follower.tick({.slow = 0.25, .fast = 1.0, .nudge = 0.0}, 1.0);
    EXPECT_NEAR(offset(), -0.125, 1e-3) << "on its way";
    follower.tick(kAtOnce, 0.0);
    EXPECT_NEAR(offset(), 0.0, 1e-9) << "modulation off";
}

} // namespace
} // namespace pedl
