#include "engine/SoftSaturator.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

StereoStretch saturated(SoftSaturator& saturator, double left, double right, int frames = 1,
                        bool isHeard = true) {
    StereoStretch stretch;
    inStretches(frames, [&](int, int length) {
        for (int i = 0; i < length; ++i) {
            stretch.at[2 * i] = left;
            stretch.at[2 * i + 1] = right;
        }
        saturator.process(stretch, isHeard, length);
    });
    return stretch;
}

/// A saturator whose drive has arrived.
struct DrivenSaturator : SoftSaturator {
    explicit DrivenSaturator(double normalised, double sampleRateHz = 44100.0) {
        setDrive(normalised);
        setSampleRate(sampleRateHz);
    }
};

TEST(SoftSaturator, BendsByATangentThatTheDriveScalesBack) {
    struct Row {
        double normalised, driveDb;
    };
    for (const Row& row : {Row{0.0, -12.0}, Row{0.5, 0.0}, Row{1.0, 18.0}}) {
        SCOPED_TRACE(testing::Message() << row.driveDb << " dB");
        DrivenSaturator saturator(row.normalised);
        const double drive = std::pow(10.0, row.driveDb / 20.0);
        for (const double level : {1e-4, 0.3, 1.0, 1000.0}) {
            const StereoStretch out = saturated(saturator, level, -0.5 * level);
            EXPECT_NEAR(db(out.at[0] / (std::tanh(level * drive) / drive)), 0.0, 1e-6);
            EXPECT_NEAR(db(-out.at[1] / (std::tanh(0.5 * level * drive) / drive)), 0.0, 1e-6);
        }
    }
}

TEST(SoftSaturator, MeterShowsTheLargestSumInFrontOfTheTangentOnce) {
    DrivenSaturator saturator(0.5);
    saturated(saturator, 0.5, -2.0);
    saturated(saturator, 0.1, 0.1);
    EXPECT_NEAR(saturator.readMeter(), 2.5, 1e-6);
    EXPECT_EQ(saturator.readMeter(), 0.0);
    saturated(saturator, 0.5, 0.5, 1, false);
    EXPECT_NEAR(saturator.readMeter(), 1.0, 1e-6) << "unheard, the meter still moves";
}

TEST(SoftSaturator, MeterReadsZeroWhileOffAndForgetsThePeakAllTheSame) {
    DrivenSaturator saturator(0.5);
    saturated(saturator, 1.0, 1.0);
    saturator.setOff(true);
    EXPECT_EQ(saturator.readMeter(), 0.0);
    saturator.setOff(false);
    EXPECT_EQ(saturator.readMeter(), 0.0);
    saturated(saturator, 1.0, 1.0);
    saturator.reset();
    EXPECT_EQ(saturator.readMeter(), 0.0);
}

TEST(SoftSaturator, DriveMovesAtFiveHertzHeardOrNot) {
    for (const double rateHz : {22050.0, 44100.0, 192000.0})
        for (const bool isHeard : {true, false}) {
            DrivenSaturator saturator(0.5, rateHz);
            saturator.setDrive(1.0);
            const int timeConstant = static_cast<int>(rateHz / (2.0 * kPi * 5.0));
            saturated(saturator, 0.0, 0.0, timeConstant, isHeard);
            const double last = std::pow(10.0, 18.0 / 20.0);
            const double bound = saturated(saturator, 1e3, 1e3).at[0];
            EXPECT_NEAR(1.0 / bound, last + (1.0 - last) / std::exp(1.0), 0.01) << rateHz;
        }
}

} // namespace
} // namespace pedl
