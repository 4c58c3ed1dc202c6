#include "demo/Levels.h"
#include "demo/Spectrogram.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace pedl::demo {
namespace {

double loudestDb(const Spectrogram& picture) {
    double loudest = -200.0;
    for (std::size_t row = 0; row < picture.rows(); ++row)
        loudest = std::max(loudest, picture.levelDb(5, row));
    return loudest;
}

TEST(Measure, ASineAtFullScaleIsZeroInTheSpectrogramAndThreeBelowInTheLevels) {
    StereoSound sound;
    for (int i = 0; i < sound.sampleRateHz; ++i)
        sound.left.push_back(
            static_cast<float>(std::sin(2.0 * std::numbers::pi * 1000.0 * i / sound.sampleRateHz)));
    sound.right = sound.left;
    EXPECT_NEAR(levelsOf(sound).rmsDb, -3.01, 0.05);
    EXPECT_NEAR(levelsOf(sound).peakDb, 0.0, 0.05);
    EXPECT_NEAR(loudestDb(Spectrogram(sound, {}, 11, 201)), 0.0, 1.0);

    sound.right.assign(sound.left.size(), 0.0F);
    EXPECT_NEAR(loudestDb(Spectrogram(sound, {}, 11, 201, Side::Left)), 0.0, 1.0);
    EXPECT_NEAR(loudestDb(Spectrogram(sound, {}, 11, 201, Side::Both)), -3.0, 1.0);
    EXPECT_LT(loudestDb(Spectrogram(sound, {}, 11, 201, Side::Right)), -140.0);
}

} // namespace
} // namespace pedl::demo
