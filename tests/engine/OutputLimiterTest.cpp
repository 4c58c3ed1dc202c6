#include "engine/OutputLimiter.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

StereoSamples limited(OutputLimiter& limiter, int frames, double left, double right) {
    StereoSamples input(static_cast<std::size_t>(frames), left), output;
    input.right.assign(input.right.size(), right);
    StereoStretch stretch;
    inStretches(frames, [&](int first, int length) {
        load(input, first, length, stretch);
        limiter.process(stretch, length);
        append(stretch, length, output);
    });
    return output;
}

/// Envelope in units of the ceiling, from the gain above and below the knee.
double envelopeOf(double gain) {
    return gain <= 0.5 ? 1.0 / gain : 4.0 * (1.0 - gain);
}

TEST(OutputLimiter, SteadySignalEndsAtTheCeilingAboveTheKneeAndBendsBelowIt) {
    struct Row {
        double level, amplitude, output;
    };
    for (const Row& row :
         {Row{0.0891, 1.0, 0.0891}, Row{0.5, 4.0, 0.5}, Row{0.5, 1.0, 0.5}, Row{0.5, 0.5, 0.375},
          Row{2.818, 1.0, 1.0 - 1.0 / (4.0 * 2.818)}, Row{0.5, 0.005, 0.005 * (1.0 - 0.0025)}}) {
        SCOPED_TRACE(testing::Message() << row.amplitude << " into " << row.level);
        for (const double sign : {1.0, -1.0}) {
            OutputLimiter limiter;
            limiter.setLevel(row.level);
            limiter.reset();
            const StereoSamples output =
                limited(limiter, 22050, sign * row.amplitude, 0.3 * row.amplitude);
            EXPECT_NEAR(db(sign * output.left.back() / row.output), 0.0, 0.001);
            EXPECT_NEAR(output.right.back(), 0.3 * sign * output.left.back(), 1e-12)
                << "the louder channel turns both down";
            EXPECT_NEAR(limiter.gain(), sign * output.left.back() / row.amplitude, 1e-12);
        }
    }
}

TEST(OutputLimiter, AttackReachesEightyNinePercentInFiveMilliseconds) {
    struct Row {
        double askedHz, usedHz;
    };
    for (const Row& row : {Row{44100.0, 44100.0}, Row{96000.0, 96000.0}, Row{22050.0, 44100.0},
                           Row{384000.0, 192000.0}}) {
        OutputLimiter limiter;
        limiter.setSampleRate(row.askedHz);
        limiter.setLevel(0.1);
        limiter.reset();
        limited(limiter, static_cast<int>(0.005 * row.usedHz), 1.0, 0.0);
        EXPECT_NEAR(envelopeOf(limiter.gain()), 8.91, 0.02) << row.askedHz << " Hz";
    }
}

TEST(OutputLimiter, ReleaseIsFastFarBelowTheEnvelopeAndSlowNearIt) {
    OutputLimiter limiter;
    limiter.setLevel(0.001);
    limiter.reset();
    limited(limiter, 4410, 0.0, 1.0); // the envelope is at 1000
    const double high = envelopeOf(limiter.gain());
    limited(limiter, 30, 0.0, 0.0);
    EXPECT_NEAR(envelopeOf(limiter.gain()) / high, std::pow(1.0 - 0.0333, 30.0), 1e-4);

    // Near silence the envelope E falls by k E^4 a frame, whose solution is E^-3 = E0^-3 + 3 k n.
    limiter.setLevel(1.0);
    limiter.reset();
    limited(limiter, 4410, 0.0, 1.0);
    EXPECT_NEAR(envelopeOf(limiter.gain()), 1.0, 0.001);
    constexpr double kUpdates = 0.050 * 44100.0;
    const double pace = 0.145 * (1.0 - std::pow(0.1091012, 1.0 / kUpdates));
    limited(limiter, 4410, 0.0, 0.0);
    EXPECT_NEAR(envelopeOf(limiter.gain()), std::cbrt(1.0 / (1.0 + 3.0 * pace * 4410.0)), 0.003);
}

TEST(OutputLimiter, RampOfTheCeilingIsOneChangeOfRateBehind) {
    OutputLimiter limiter;
    limiter.setAttack(0.1); // the envelope shows the ramp
    const auto framesOfFiveHertz = [](double rateHz) {
        return static_cast<int>(rateHz / (2.0 * kPi * 5.0));
    };
    for (const double paceHz : {44100.0, 96000.0}) { // the rate set before, then the present one
        limiter.setLevel(1.0 / 3.0);
        limiter.setSampleRate(96000.0);
        limited(limiter, 9600, 1.0, 0.0);
        limiter.setLevel(1.0 / 6.0);
        limited(limiter, framesOfFiveHertz(paceHz), 1.0, 0.0);
        EXPECT_NEAR(envelopeOf(limiter.gain()), 6.0 - 3.0 / std::exp(1.0), 0.02) << paceHz;
    }
}

TEST(OutputLimiter, TimesOutsideTheirRangeCountAsTheNearerBound) {
    const auto gainAfter = [](double attackMs, double releaseMs) {
        OutputLimiter limiter;
        limiter.setAttack(attackMs);
        limiter.setRelease(releaseMs);
        limited(limiter, 20, 1.0, 0.0);
        limited(limiter, 200, 0.0, 0.0);
        return limiter.gain();
    };
    EXPECT_EQ(gainAfter(0.0, 1.0), gainAfter(0.1, 30.0));
    EXPECT_EQ(gainAfter(1e6, 1e6), gainAfter(100.0, 3000.0));
    EXPECT_NE(gainAfter(0.2, 30.0), gainAfter(0.1, 30.0));
    EXPECT_NE(gainAfter(0.1, 60.0), gainAfter(0.1, 30.0));
}

} // namespace
} // namespace pedl
