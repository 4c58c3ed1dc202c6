#include "engine/CutoffPath.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

/// The path with a constant wave and a constant offset of the envelope.
class Path {
public:
    explicit Path(double base) {
        path_.setBase(base);
        path_.reinitialise();
        for (double& depth : depth_.at)
            depth = 1.0;
    }

    StereoSamples run(int frames, double amount, double left, double right, double offset,
                      double coefficient = 1.0) {
        for (int i = 0; i < kStretchFrames; ++i) {
            wave_.at[2 * i] = left;
            wave_.at[2 * i + 1] = right;
            offset_.at[i] = offset;
        }
        StereoSamples cutoffs;
        inStretches(frames, [&](int, int length) {
            path_.process(amount, depth_, wave_, offset_, coefficient, length, output_);
            append(output_.hz, length, cutoffs);
        });
        return cutoffs;
    }

    CutoffPath& operator*() { return path_; }
    [[nodiscard]] bool wasConstant() const { return output_.isConstant; }

private:
    CutoffPath path_;
    MonoStretch depth_, offset_;
    StereoStretch wave_;
    CutoffStretch output_;
};

/// A thousandth of a semitone: the table's steps are a hundredth.
void expectPitch(double actualHz, double expectedHz) {
    EXPECT_NEAR(12.0 * std::log2(actualHz / expectedHz), 0.0, 0.002);
}

TEST(CutoffTable, RunsFromTwentyHzToTwentyKilohertzInEqualStepsOfPitch) {
    const CutoffTable& table = CutoffTable::shared();
    EXPECT_DOUBLE_EQ(table.hz(0), 20.0);
    EXPECT_DOUBLE_EQ(table.hz(99899), 20000.0);
    for (const int index : {0, 12345, 99898})
        EXPECT_NEAR(table.hz(index + 1) / table.hz(index), std::pow(1000.0, 1.0 / 99899.0), 1e-13);
}

TEST(CutoffPath, KnobWaveAndEnvelopeAddUpInPitch) {
    Path path(0.5);
    const StereoSamples cutoffs = path.run(1, 0.25, 1.0, -1.0, 0.05);
    expectPitch(cutoffs.left[0], 20.0 * std::pow(1000.0, 0.8));
    expectPitch(cutoffs.right[0], 20.0 * std::pow(1000.0, 0.3));
}

TEST(CutoffPath, StopsAtTheEndsOfTheTable) {
    Path path(0.5);
    for (const double offset : {2.0, 1e9, 1e60}) {
        EXPECT_DOUBLE_EQ(path.run(1, 0.0, 0.0, 0.0, offset).left[0], 20000.0);
        EXPECT_DOUBLE_EQ(path.run(1, 0.0, 0.0, 0.0, -offset).left[0], 20.0);
    }
}

TEST(CutoffPath, ThreePolesSmoothTheWaveAndNoneTheEnvelope) {
    constexpr double kFramesOfOnePole = 500.0;
    Path path(0.0);
    const StereoSamples rising = path.run(2000, 0.5, 1.0, 0.0, 0.0, 1.0 / kFramesOfOnePole);
    for (const int frame : {250, 500, 1000, 1999}) {
        // Step response of three equal poles, the Erlang distribution.
        const double t = (frame + 1) / kFramesOfOnePole;
        const double way = 1.0 - std::exp(-t) * (1.0 + t + 0.5 * t * t);
        const double position =
            std::log(rising.left[static_cast<std::size_t>(frame)] / 20.0) / std::log(1000.0);
        EXPECT_NEAR(position, 0.5 * way, 0.002) << "frame " << frame;
        EXPECT_EQ(rising.right[static_cast<std::size_t>(frame)], 20.0);
    }
    Path still(0.25);
    expectPitch(still.run(1, 0.0, 0.0, 0.0, 0.25, 1.0 / kFramesOfOnePole).left[0],
                20.0 * std::pow(1000.0, 0.5));
}

TEST(CutoffPath, KnobGlidesOnceATickUntilReinitialiseEndsTheRamp) {
    Path path(0.0);
    (*path).setBase(0.8);
    EXPECT_EQ(path.run(64, 0.0, 0.0, 0.0, 0.0).left.back(), 20.0);
    EXPECT_TRUE(path.wasConstant());
    (*path).tick({.slow = 0.25, .fast = 1.0, .nudge = 0.0});
    expectPitch(path.run(64, 0.0, 0.0, 0.0, 0.0).left.back(), 20.0 * std::pow(1000.0, 0.2));
    EXPECT_FALSE(path.run(64, 0.5, 1.0, 1.0, 0.0, 0.1).left.empty() || path.wasConstant());
    (*path).reinitialise();
    expectPitch(path.run(1, 0.0, 0.0, 0.0, 0.0, 0.001).left[0], 20.0 * std::pow(1000.0, 0.8));
}

} // namespace
} // namespace pedl
