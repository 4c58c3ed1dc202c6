#include "engine/OutputLimiter.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

struct TestLimiter : OutputLimiter {
    explicit TestLimiter(double level, double sampleRateHz = 44100.0) {
        setSampleRate(sampleRateHz);
        setLevel(level);
        reset();
    }

    /// Plays a constant; returns the last full stretch.
    StereoStretch play(int frames, double left, double right) {
        StereoStretch stretch;
        inStretches(frames, [&](int, int length) {
            stretch = constant(left, right);
            process(stretch, length);
        });
        return stretch;
    }

    /// Envelope in units of the ceiling, from the gain above and below the knee.
    double envelope() const { return gain() <= 0.5 ? 1.0 / gain() : 4.0 * (1.0 - gain()); }
};

TEST(OutputLimiter, SteadySignalEndsAtTheCeilingAboveTheKneeAndBendsBelowIt) {
    struct Row {
        double level, amplitude, output;
    };
    for (const Row& row :
         {Row{0.0891, 1.0, 0.0891}, Row{0.5, 4.0, 0.5}, Row{0.5, 1.0, 0.5}, Row{0.5, 0.5, 0.375},
          Row{2.818, 1.0, 1.0 - 1.0 / (4.0 * 2.818)}, Row{0.5, 0.005, 0.005 * (1.0 - 0.0025)}}) {
        SCOPED_TRACE(testing::Message() << row.amplitude << " into " << row.level);
        for (const double sign : {1.0, -1.0}) {
            TestLimiter limiter(row.level);
            const StereoStretch output =
                limiter.play(345 * kStretchFrames, sign * row.amplitude, 0.3 * row.amplitude);
            const double left = output.at[2 * kStretchFrames - 2];
            EXPECT_NEAR(db(sign * left / row.output), 0.0, 0.001);
            EXPECT_NEAR(output.at[2 * kStretchFrames - 1], 0.3 * sign * left, 1e-12)
                << "the louder channel turns both down";
            EXPECT_NEAR(limiter.gain(), sign * left / row.amplitude, 1e-12);
        }
    }
}

TEST(OutputLimiter, AttackReachesEightyNinePercentInFiveMilliseconds) {
    struct Row {
        double askedHz, usedHz;
    };
    for (const Row& row : {Row{44100.0, 44100.0}, Row{96000.0, 96000.0}, Row{22050.0, 44100.0},
                           Row{384000.0, 192000.0}}) {
        TestLimiter limiter(0.1, row.askedHz);
        limiter.play(static_cast<int>(0.005 * row.usedHz), 1.0, 0.0);
        EXPECT_NEAR(limiter.envelope(), 8.91, 0.02) << row.askedHz << " Hz";
    }
}

TEST(OutputLimiter, ReleaseIsFastFarBelowTheEnvelopeAndSlowNearIt) {
    TestLimiter limiter(0.001);
    limiter.play(4410, 0.0, 1.0); // the envelope is at 1000
    const double high = limiter.envelope();
    limiter.play(30, 0.0, 0.0);
    EXPECT_NEAR(limiter.envelope() / high, std::pow(1.0 - 0.0333, 30.0), 1e-4);

    // Near silence the envelope E falls by k E^4 a frame, whose solution is E^-3 = E0^-3 + 3 k n.
    TestLimiter slow(1.0);
    slow.play(4410, 0.0, 1.0);
    EXPECT_NEAR(slow.envelope(), 1.0, 0.001);
    constexpr double kUpdates = 0.050 * 44100.0;
    const double pace = 0.145 * (1.0 - std::pow(0.1091012, 1.0 / kUpdates));
    slow.play(4410, 0.0, 0.0);
    EXPECT_NEAR(slow.envelope(), std::cbrt(1.0 / (1.0 + 3.0 * pace * 4410.0)), 0.003);
}

} // namespace
} // namespace pedl
