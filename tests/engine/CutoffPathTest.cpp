#include "engine/CutoffPath.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

struct Modulation {
    double amount = 0.0, left = 0.0, right = 0.0; // the wave at full depth
    double offset = 0.0;                          // by the envelope
    double coefficient = 1.0;                     // of the wave's smoothing
};

/// Cut-offs of a path that starts at rest with its knob at `base`.
StereoSamples cutoffsOf(double base, const Modulation& by, int frames = 1) {
    CutoffPath path;
    path.setBase(base);
    path.reinitialise();
    MonoStretch depth, offset;
    std::fill_n(depth.at, kStretchFrames, 1.0);
    std::fill_n(offset.at, kStretchFrames, by.offset);
    CutoffStretch output;
    StereoSamples cutoffs;
    inStretches(frames, [&](int, int length) {
        path.process(by.amount, depth, constant(by.left, by.right), offset, by.coefficient, length,
                     output);
        append(output.hz, length, cutoffs);
    });
    return cutoffs;
}

double positionOf(double cutoffHz) {
    return std::log(cutoffHz / 20.0) / std::log(1000.0);
}

TEST(CutoffTable, RunsFromTwentyHzToTwentyKilohertzInEqualStepsOfPitch) {
    const CutoffTable& table = CutoffTable::shared();
    EXPECT_DOUBLE_EQ(table.hz(0), 20.0);
    EXPECT_DOUBLE_EQ(table.hz(99899), 20000.0);
    for (const int index : {0, 12345, 99898})
        EXPECT_NEAR(table.hz(index + 1) / table.hz(index), std::pow(1000.0, 1.0 / 99899.0), 1e-13);
}

TEST(CutoffPath, KnobWaveAndEnvelopeAddUpInPitchAndStopAtTheEnds) {
    const StereoSamples sum =
        cutoffsOf(0.5, {.amount = 0.25, .left = 1.0, .right = -1.0, .offset = 0.05});
    EXPECT_NEAR(positionOf(sum.left[0]), 0.8, 1.5e-5); // less than 0.2 % of a semitone
    EXPECT_NEAR(positionOf(sum.right[0]), 0.3, 1.5e-5);
    for (const double offset : {2.0, 1e9, 1e60}) {
        EXPECT_DOUBLE_EQ(cutoffsOf(0.5, {.offset = offset}).left[0], 20000.0);
        EXPECT_DOUBLE_EQ(cutoffsOf(0.5, {.offset = -offset}).left[0], 20.0);
    }
}

TEST(CutoffPath, ThreePolesSmoothTheWaveAndNoneTheEnvelope) {
    constexpr double kFramesOfOnePole = 500.0, kPole = 1.0 / kFramesOfOnePole;
    const StereoSamples rising =
        cutoffsOf(0.0, {.amount = 0.5, .left = 1.0, .coefficient = kPole}, 2000);
    for (const std::size_t frame : {250u, 500u, 1000u, 1999u}) {
        // Step response of three equal poles, the Erlang distribution.
        const double t = static_cast<double>(frame + 1) / kFramesOfOnePole;
        const double way = 1.0 - std::exp(-t) * (1.0 + t + 0.5 * t * t);
        EXPECT_NEAR(positionOf(rising.left[frame]), 0.5 * way, 0.002) << "frame " << frame;
        EXPECT_EQ(rising.right[frame], 20.0);
    }
    const StereoSamples still = cutoffsOf(0.25, {.offset = 0.25, .coefficient = kPole});
    EXPECT_NEAR(positionOf(still.left[0]), 0.5, 1.5e-5);
}

} // namespace
} // namespace pedl
