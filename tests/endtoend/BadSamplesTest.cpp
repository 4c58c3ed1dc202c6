// Whatever a host or the effect before ours delivers, the sound comes back.

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

namespace pedl::test {

namespace {

constexpr double kSampleRateHz = 48000.0;
constexpr std::size_t kSecondFrames = 48000;
constexpr VstInt32 kBlockFrames = 480;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The envelope falls at the release's pace from wherever it was: from 1e60, the power of the worst
// sample here, that takes 40 s with the 700 ms an instance starts with, and 0.2 s with the
// shortest.
constexpr VstInt32 kReleaseParameter = 30;

struct Settings {
    const char* name;
    std::vector<std::pair<VstInt32, float>>
        values; // by parameter index; else as the instance comes
};

// Two instances that are compared must not differ by right: no random wave, no envelope on the
// LFO's rate (its phase remembers for ever), no resonance that nearly oscillates by itself.
const std::vector<Settings> kSettings = {
    {"as it comes", {}},
    {"nearly everything on, saturated, limiter and saturator behind the mix",
     {{4, 0.2F},  {6, 0.3F},  {16, 1.0F}, {17, 0.7F}, {18, 0.3F}, {19, 1.0F}, {20, 0.9F},
      {25, 0.9F}, {28, 0.3F}, {30, 0.3F}, {32, 1.0F}, {33, 0.7F}, {34, 1.0F}, {35, 0.8F},
      {36, 1.0F}, {37, 0.9F}, {38, 1.0F}, {39, 0.7F}, {41, 1.0F}, {42, 1.0F}, {43, 0.7F},
      {44, 1.0F}, {45, 0.7F}, {46, 1.0F}, {49, 1.0F}}},
    {"band-pass, envelope around its threshold, limiter off",
     {{18, 0.5F}, {19, 1.0F}, {20, 0.6F}, {26, 1.0F}, {37, 0.1F}, {42, 0.0F}, {44, 0.0F}}},
    {"filter off, no limiter", {{19, 0.0F}, {42, 0.0F}, {44, 0.0F}, {36, 0.0F}}},
};

void processFrom(const RunningEffect& effect, StereoBuffer<float>& buffer, std::size_t frame) {
    auto pointers = buffer.from(frame);
    effect->processReplacing(effect.get(), pointers.data(), pointers.data(), kBlockFrames);
}

void processFrom(const RunningEffect& effect, StereoBuffer<double>& buffer, std::size_t frame) {
    auto pointers = buffer.from(frame);
    effect->processDoubleReplacing(effect.get(), pointers.data(), pointers.data(), kBlockFrames);
}

class BadSamples : public testing::Test {
protected:
    /// Noise through a new instance; `sample` stands on each channel alone and on both in a row,
    /// all within the first thirtieth of a second.
    template <typename Sample>
    StereoBuffer<Sample> outputWith(double sample, const Settings& settings, std::size_t frames) {
        const RunningEffect effect(library, kSampleRateHz, kBlockFrames);
        for (const auto& [index, value] : settings.values)
            effect->setParameter(effect.get(), index, value);
        auto buffer = noise<Sample>(frames, 7);
        const auto bad = static_cast<Sample>(sample);
        buffer.left[1] = buffer.right[200] = bad;
        for (std::size_t frame = 1000; frame < 1130; ++frame) // longer than a control tick
            buffer.left[frame] = buffer.right[frame] = bad;
        for (std::size_t frame = 0; frame < frames; frame += kBlockFrames)
            processFrom(effect, buffer, frame);
        return buffer;
    }

    template <typename Sample> void expectSilenceInPlaceOf(std::initializer_list<double> samples) {
        constexpr std::size_t kFrames = kSecondFrames / 2;
        for (const Settings& settings : kSettings) {
            const auto expected = outputWith<Sample>(0.0, settings, kFrames);
            for (const double sample : samples)
                EXPECT_TRUE(outputWith<Sample>(sample, settings, kFrames) == expected)
                    << sample << ", " << settings.name;
        }
    }

    /// Largest difference of two outputs in their last third, as a part of the peak there.
    template <typename Sample>
    static double lateDifference(const StereoBuffer<Sample>& output,
                                 const StereoBuffer<Sample>& expected) {
        double difference = 0.0;
        double peak = 0.0;
        for (std::size_t frame = output.left.size() / 3 * 2; frame < output.left.size(); ++frame) {
            const double left{expected.left[frame]}, right{expected.right[frame]};
            peak = std::max({peak, std::abs(left), std::abs(right)});
            difference = std::max({difference, std::abs(output.left[frame] - left),
                                   std::abs(output.right[frame] - right)});
        }
        return difference / peak;
    }

    template <typename Sample>
    void expectRecoveryFrom(double sample, std::size_t frames, double tolerance) {
        for (Settings settings : kSettings) {
            SCOPED_TRACE(testing::Message() << sample << ", " << settings.name);
            EXPECT_TRUE(outputWith<Sample>(sample, settings, kSecondFrames).isFinite());
            settings.values.emplace_back(kReleaseParameter, 0.0F);
            const auto output = outputWith<Sample>(sample, settings, frames);
            EXPECT_TRUE(output.isFinite());
            EXPECT_LE(lateDifference(output, outputWith<Sample>(0.0, settings, frames)), tolerance);
        }
    }

    PluginLibrary library{PEDL_PLUGIN_PATH};
    RecordingHost host;
};

} // namespace

TEST_F(BadSamples, NumbersThatAreNoneCountAsSilence) {
    expectSilenceInPlaceOf<float>({kNaN, kInfinity, -kInfinity});
    expectSilenceInPlaceOf<double>({kNaN, kInfinity, -kInfinity});
}

TEST_F(BadSamples, DenormalNumbersCountAsSilence) {
    constexpr double kInaudible = 1e-9;
    expectRecoveryFrom<float>(1e-42, kSecondFrames / 2, kInaudible);
    expectRecoveryFrom<double>(1e-310, kSecondFrames / 2, kInaudible);
}

TEST_F(BadSamples, TheSoundComesBackAfterSamplesFarBeyondFullScale) {
    // The limiter lets the last decibel go slowly: the nearer its envelope, the slower.
    constexpr double kOneDb = 0.122;
    expectRecoveryFrom<float>(1e30, 3 * kSecondFrames, kOneDb);
    expectRecoveryFrom<double>(-1e30, 3 * kSecondFrames, kOneDb);
}

} // namespace pedl::test
