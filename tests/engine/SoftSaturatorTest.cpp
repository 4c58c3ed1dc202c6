#include "engine/SoftSaturator.h"

#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;

TEST(SoftSaturator, BendsByATangentThatTheDriveScalesBack) {
    struct Row {
        double normalised, driveDb;
    };
    for (const Row& row : {Row{0.0, -12.0}, Row{0.5, 0.0}, Row{1.0, 18.0}}) {
        SCOPED_TRACE(testing::Message() << row.driveDb << " dB");
        SoftSaturator saturator;
        saturator.setDrive(row.normalised);
        saturator.setSampleRate(44100.0); // the drive arrives
        const double drive = std::pow(10.0, row.driveDb / 20.0);
        for (const double level : {1e-4, 0.3, 1.0, 1000.0}) {
            StereoStretch out = constant(level, -0.5 * level);
            saturator.process(out, true, 1);
            EXPECT_NEAR(db(out.at[0] / (std::tanh(level * drive) / drive)), 0.0, 1e-6);
            EXPECT_NEAR(db(-out.at[1] / (std::tanh(0.5 * level * drive) / drive)), 0.0, 1e-6);
        }
    }
}

} // namespace
} // namespace pedl
