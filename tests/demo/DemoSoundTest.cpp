#include "demo/Levels.h"
#include "demo/Material.h"
#include "demo/Spectrogram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pedl::demo {

namespace {

constexpr FrequencyAxis kAxis;
constexpr std::size_t kColumns = 8;
constexpr std::size_t kRows = 500;

/// One second of a sine wave, by channel at its own level.
StereoSound sine(double hertz, double leftLevel, double rightLevel) {
    StereoSound sound;
    for (int i = 0; i < sound.sampleRateHz; ++i) {
        const double value = std::sin(2.0 * std::numbers::pi * hertz * i / sound.sampleRateHz);
        sound.left.push_back(static_cast<float>(leftLevel * value));
        sound.right.push_back(static_cast<float>(rightLevel * value));
    }
    return sound;
}

std::size_t loudestRow(const Spectrogram& spectrogram, std::size_t column) {
    std::size_t loudest = 0;
    for (std::size_t row = 1; row < spectrogram.rows(); ++row)
        if (spectrogram.levelDb(column, row) > spectrogram.levelDb(column, loudest))
            loudest = row;
    return loudest;
}

} // namespace

TEST(Spectrogram, ShowsASineAtItsPitchWithItsLevel) {
    struct Row {
        double hertz, left, right, expectedDb;
    };
    for (const Row row : {Row{60.0, 1.0, 1.0, 0.0}, Row{440.0, 0.5, 0.5, -6.02},
                          Row{1000.0, 1.0, 0.0, -3.01}, Row{9000.0, 0.1, 0.1, -20.0}}) {
        SCOPED_TRACE(testing::Message() << row.hertz << " Hz");
        const Spectrogram spectrogram(sine(row.hertz, row.left, row.right), kAxis, kColumns, kRows);
        const std::size_t loudest = loudestRow(spectrogram, kColumns / 2);
        const double semitones =
            12.0 *
            std::log2(kAxis.hertzAt((static_cast<double>(loudest) + 0.5) / kRows) / row.hertz);
        EXPECT_NEAR(semitones, 0.0, row.hertz < 100.0 ? 1.5 : 0.75); // a bin at 60 Hz: 1.6
        EXPECT_NEAR(spectrogram.levelDb(kColumns / 2, loudest), row.expectedDb, 1.5);
    }
}

TEST(Spectrogram, IsDarkWhereTheSoundIsSilent) {
    StereoSound sound = sine(1000.0, 1.0, 1.0);
    const auto middle = static_cast<std::ptrdiff_t>(sound.lengthFrames() / 2);
    std::fill(sound.left.begin() + middle, sound.left.end(), 0.0F);
    std::fill(sound.right.begin() + middle, sound.right.end(), 0.0F);
    const Spectrogram spectrogram(sound, kAxis, kColumns, kRows);
    EXPECT_GT(spectrogram.levelDb(1, loudestRow(spectrogram, 1)), -1.5);
    EXPECT_LT(spectrogram.levelDb(kColumns - 2, loudestRow(spectrogram, kColumns - 2)), -120.0);
}

TEST(Levels, OfASineAndOfSilence) {
    const Levels full = levelsOf(sine(1000.0, 1.0, 1.0));
    EXPECT_NEAR(full.rmsDb, -3.01, 0.01);
    EXPECT_NEAR(full.peakDb, 0.0, 0.01);
    const Levels oneSide = levelsOf(sine(1000.0, 0.0, 0.5));
    EXPECT_NEAR(oneSide.rmsDb, -12.04, 0.01);
    EXPECT_NEAR(oneSide.peakDb, -6.02, 0.01);
    EXPECT_EQ(levelsOf(StereoSound{}).peakDb, -160.0);
}

TEST(Material, LastsFourBarsAtADecentLevel) {
    struct Row {
        const char* name;
        StereoSound sound;
    };
    for (const Row& row :
         {Row{"riff", pluckedRiff()}, Row{"drums", drumPattern()}, Row{"pad", pad()}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.sound.lengthSeconds(), 8.0);
        const Levels levels = levelsOf(row.sound);
        EXPECT_NEAR(levels.peakDb, -3.0, 0.01);
        EXPECT_GT(levels.rmsDb, -18.0);
        EXPECT_LT(levels.rmsDb, -12.0);
    }
}

TEST(Material, TheRiffIsInTune) {
    // The riff's first note stands alone for three sixteenths: a low E, 82.41 Hz. The lag at which
    // a sound resembles itself most is its period.
    const StereoSound riff = pluckedRiff();
    constexpr std::size_t kFrom = 2000;
    constexpr std::size_t kFrames = 8000;
    std::size_t bestLag = 0;
    double best = 0.0;
    for (std::size_t lag = 400; lag < 900; ++lag) {
        double likeness = 0.0;
        for (std::size_t i = kFrom; i < kFrom + kFrames; ++i)
            likeness += static_cast<double>(riff.left[i]) * riff.left[i + lag];
        if (likeness > best) {
            best = likeness;
            bestLag = lag;
        }
    }
    const double hertz = riff.sampleRateHz / static_cast<double>(bestLag);
    EXPECT_NEAR(1200.0 * std::log2(hertz / 82.407), 0.0, 5.0) << "cents";
}

} // namespace pedl::demo
