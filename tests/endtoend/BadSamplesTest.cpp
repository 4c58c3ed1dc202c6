// Whatever a host or the effect before ours delivers, the sound comes back.

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace pedl::test {

namespace {

constexpr float kSampleRateHz = 48000.0F;
constexpr VstInt32 kBlockFrames = 480;

void process(AEffect* effect, std::array<float*, 2> channels) {
    effect->processReplacing(effect, channels.data(), channels.data(), kBlockFrames);
}

void process(AEffect* effect, std::array<double*, 2> channels) {
    effect->processDoubleReplacing(effect, channels.data(), channels.data(), kBlockFrames);
}

/// Three seconds of noise through a new instance with nearly everything on; `sample` stands on each
/// channel alone and on both for longer than a control tick, all within the first second's
/// beginning.
template <typename Sample> StereoBuffer<Sample> outputWith(Sample sample) {
    // The envelope falls at the release's pace from wherever it was: with the shortest from the
    // largest sample in 0.2 s. Nothing on whose past a sound would depend for ever.
    const std::map<VstInt32, float> values{{1, 0.6F},  {18, 0.3F}, {19, 1.0F}, {20, 0.6F},
                                           {25, 0.9F}, {28, 0.3F}, {30, 0.0F}, {32, 1.0F},
                                           {33, 0.7F}, {34, 1.0F}, {35, 0.8F}, {36, 1.0F},
                                           {37, 0.9F}, {38, 1.0F}, {39, 0.7F}, {46, 1.0F}};
    const PluginLibrary library(PEDL_PLUGIN_PATH);
    const RecordingHost host;
    const RunningEffect effect(library, kSampleRateHz, kBlockFrames);
    for (const auto& [index, value] : values)
        effect->setParameter(effect.get(), index, value);
    auto buffer = noise<Sample>(3 * static_cast<std::size_t>(kSampleRateHz), 7);
    buffer.left[1] = buffer.right[200] = sample;
    std::fill_n(buffer.left.begin() + 1000, 130, sample);
    std::fill_n(buffer.right.begin() + 1000, 130, sample);
    for (std::size_t frame = 0; frame < buffer.left.size(); frame += kBlockFrames)
        process(effect.get(), buffer.from(frame));
    return buffer;
}

template <typename Sample> void expectTheSoundComesBackFrom(const std::vector<Sample>& samples) {
    constexpr double kOneDb = 0.122; // the limiter lets the last decibel go slowly
    const auto expected = outputWith<Sample>(0);
    for (const Sample sample : samples) {
        SCOPED_TRACE(sample);
        const auto output = outputWith(sample);
        EXPECT_TRUE(output.isFinite());
        for (std::size_t i = expected.left.size() / 3 * 2; i < expected.left.size(); ++i) {
            ASSERT_NEAR(output.left[i], expected.left[i], kOneDb) << i;
            ASSERT_NEAR(output.right[i], expected.right[i], kOneDb) << i;
        }
    }
}

} // namespace

TEST(BadSamples, TheSoundComesBackThroughBothEntries) {
    expectTheSoundComesBackFrom<float>({NAN, INFINITY, -INFINITY, 1e-42F, 1e30F, 3e38F});
    expectTheSoundComesBackFrom<double>({NAN, INFINITY, -INFINITY, 1e-310, -1e30, 1e300});
}

} // namespace pedl::test
