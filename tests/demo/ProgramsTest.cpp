#include "demo/Fingerprint.h"
#include "demo/Material.h"
#include "demo/ProgramPlay.h"
#include "presets/FactoryPrograms.h"

#include <gtest/gtest.h>
#include <thread>

namespace pedl::demo {
namespace {

constexpr int kDifferentPrograms = 121; // behind them are only more slots of "Init"
constexpr int kBypass = kDifferentPrograms;

StereoSound beginningOf(const char* name) {
    constexpr std::size_t kFrames = 60000;
    StereoSound sound = material(name);
    sound.left.resize(kFrames);
    sound.right.resize(kFrames);
    return sound;
}

/// All programs over a little of two materials.
class FactorySounds : public testing::Test {
protected:
    void SetUp() override {
        std::thread other([this] { playEverySecond(1); });
        playEverySecond(0);
        other.join();
        for (const Times& dry : dry_)
            prints_[kBypass].push_back(fingerprintOf(dry.times, dry.times, dry.times));
    }

    double stepsApart(int one, int other) const {
        double steps = 0.0;
        for (std::size_t m = 0; m < dry_.size(); ++m)
            steps +=
                stepsBetween(prints_[one][m], prints_[other][m]) / static_cast<double>(dry_.size());
        return steps;
    }

    std::array<ShortTimes, kDifferentPrograms> onDrums_;
    std::array<std::vector<Fingerprint>, kBypass + 1> prints_;

private:
    struct Times {
        explicit Times(const char* name) : sound(beginningOf(name)), times(shortTimesOf(sound)) {}
        StereoSound sound;
        ShortTimes times;
    };

    void playEverySecond(int first) {
        for (int slot = first; slot < kDifferentPrograms; slot += 2)
            for (const Times& dry : dry_) {
                onDrums_[slot] =
                    shortTimesOf(playProgram(factoryProgram(slot), dry.sound, {}).output);
                prints_[slot].push_back(fingerprintOf(dry.times, onDrums_[slot], onDrums_[slot]));
            }
    }

    const std::array<Times, 2> dry_{Times("riff"), Times("drums")};
};

TEST_F(FactorySounds, StayBelowPlusThreeNearToDefaultsLoudnessAndApartFromEachOther) {
    for (int slot = 0; slot < kDifferentPrograms; ++slot) {
        SCOPED_TRACE(factoryProgramName(slot));
        EXPECT_LT(onDrums_[slot].peakDb, 3.0);
        EXPECT_GT(onDrums_[slot].totalDb, onDrums_[0].totalDb - 14.0);
        EXPECT_LT(onDrums_[slot].totalDb, onDrums_[0].totalDb + 6.0);
        for (int other = slot + 1; other <= kBypass; ++other)
            EXPECT_GT(stepsApart(slot, other), 1.0)
                << (other == kBypass ? "bypass" : factoryProgramName(other));
    }
}

} // namespace
} // namespace pedl::demo
