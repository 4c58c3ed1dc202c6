#include "engine/EnvelopeFollower.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

constexpr double kAbove = 0.0, kBelow = 0.5, kAround = 1.0;
constexpr double kUnitRange = 0.5773502691896258; // range 1 outside of mode "below"

struct Said {
    double level, cutoffOffset;
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
    std::vector<Said> follow(int frames, double root) {
        const double amplitude = root / std::sqrt(2.0 * 0.707); // both channels together
        std::vector<Said> said;
        inStretches(frames, [&](int, int length) {
            EnvelopeOutput output;
            process(constant(amplitude, amplitude), 0.0, 1.0, length, output);
            for (int i = 0; i < length; ++i)
                said.push_back({output.level.at[i], output.cutoffOffset.at[i]});
        });
        return said;
    }

    Said settleAt(double root) { return follow(22050, root).back(); }
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

/// Power behind the smoothers in mode "around" with range 1, against that of a root of 30.
double shareOfPower(const Said& said) {
    return std::pow(10.0, 2.0 * said.level) / 900.0;
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
            EXPECT_NEAR(shareOfPower(rising[static_cast<std::size_t>(0.05 * rateHz)]), 0.9, 0.01);
            const auto falling = follower.follow(static_cast<int>(0.5 * rateHz), 0.0);
            EXPECT_NEAR(shareOfPower(falling[static_cast<std::size_t>(0.2 * rateHz)]), 0.1, 0.01);
        }
}

TEST(EnvelopeFollower, ShapeTurnsSmoothlyFromOnePoleToASoftStart) {
    const auto earlyPower = [](double shape) {
        Follower follower(kAround);
        follower.setAttackTime(50.0);
        follower.setAttackShape(shape);
        return shareOfPower(follower.follow(441, 30.0).back());
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
        std::vector<Said> said = follower.follow(1, 10.0);
        for (const Said& later : follower.follow(8000, 0.0))
            said.push_back(later);
        const auto highest = std::ranges::max_element(said, {}, &Said::level);
        EXPECT_EQ(highest - said.begin(), row.frames) << "extension " << row.extension;
    }
}

} // namespace
} // namespace pedl
