// Hosts process instances in several threads while others read and write parameters. What is at
// stake shows under the thread sanitizer; without it these tests show that nothing breaks.

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include "engine/ModFilterEngine.h"

#include <array>
#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <thread>
#include <vector>

namespace pedl::test {

namespace {

constexpr VstInt32 kBlockFrames = 256;
constexpr VstInt32 kParameters = 56;
constexpr VstInt32 kTagEnd = 165;
constexpr int kBlocks = 400;

/// Plays noise through both entries in blocks of changing size; whether all of it stayed finite.
bool playFinite(AEffect* effect, unsigned seed) {
    std::mt19937 random(seed);
    ControlChange controlChange(0, 7, 64);
    bool isFinite = true;
    for (int block = 0; block < kBlocks; ++block) {
        const auto frames = static_cast<VstInt32>(random() % (kBlockFrames + 1));
        dispatch(effect, effProcessEvents, 0, 0, &controlChange.list);
        auto floats = noise<float>(kBlockFrames, seed);
        effect->processReplacing(effect, floats.from(0).data(), floats.from(0).data(), frames);
        auto doubles = noise<double>(kBlockFrames, seed);
        effect->processDoubleReplacing(effect, doubles.from(0).data(), doubles.from(0).data(),
                                       frames);
        isFinite = isFinite && floats.isFinite() && doubles.isFinite();
    }
    return isFinite;
}

void turnAndReadEverything(AEffect* effect, std::mt19937& random) {
    std::array<char, 256> text{};
    const auto index = static_cast<VstInt32>(random() % kTagEnd);
    const auto value = static_cast<float>(random() % 1001) / 1000.0F;
    effect->setParameter(effect, index, value);
    effect->getParameter(effect, static_cast<VstInt32>(random() % kTagEnd));
    dispatch(effect, effGetParamDisplay, static_cast<VstInt32>(random() % kParameters), 0,
             text.data());
}

/// One instance that plays on a thread of its own, for as long as the test has something for it to
/// meet; joined at the end of scope.
struct PlayingEffect {
    ~PlayingEffect() { audio.join(); }

    RecordingHost host;
    const PluginLibrary library{PEDL_PLUGIN_PATH};
    const RunningEffect effect{library, 48000.0F, kBlockFrames};
    std::atomic<bool> isPlaying{true};
    std::thread audio{[this] {
        EXPECT_TRUE(playFinite(effect.get(), 1));
        isPlaying = false;
    }};
};

} // namespace

TEST(Threads, TwoInstancesPlayWhileAThirdThreadTurnsTheirKnobs) {
    VstTimeInfo time{};
    time.sampleRate = 48000.0;
    time.tempo = 120.0;
    time.flags = kVstTransportPlaying | kVstPpqPosValid | kVstTempoValid;
    RecordingHost host;
    host.time = &time;
    const PluginLibrary library(PEDL_PLUGIN_PATH);
    const RunningEffect first(library, 48000.0F, kBlockFrames);
    const RunningEffect second(library, 44100.0F, kBlockFrames);

    std::atomic<int> playing{2};
    std::array<std::atomic<bool>, 2> isFinite{};
    std::thread firstAudio([&] {
        isFinite[0] = playFinite(first.get(), 1);
        --playing;
    });
    std::thread secondAudio([&] {
        isFinite[1] = playFinite(second.get(), 2);
        --playing;
    });
    std::mt19937 random(3);
    while (playing > 0) {
        turnAndReadEverything(first.get(), random);
        turnAndReadEverything(second.get(), random);
    }
    firstAudio.join();
    secondAudio.join();
    EXPECT_TRUE(isFinite[0]);
    EXPECT_TRUE(isFinite[1]);
}

TEST(Threads, StateIsSavedAndRestoredOnAThreadOfItsOwn) {
    PlayingEffect playing;
    std::thread state([&] {
        while (playing.isPlaying) {
            void* data = nullptr;
            const VstIntPtr size = dispatch(playing.effect.get(), effGetChunk, 0, 0, &data);
            const auto* const bytes = static_cast<const char*>(data);
            std::vector<char> chunk(bytes, bytes + size); // the host's own, as it must be
            EXPECT_EQ(dispatch(playing.effect.get(), effSetChunk, 0, size, chunk.data()), 0);
        }
    });
    std::mt19937 random(5);
    while (playing.isPlaying)
        turnAndReadEverything(playing.effect.get(), random);
    state.join();
}

TEST(Threads, InstancesComeAndGoWhileAnotherPlays) {
    PlayingEffect playing;
    // Other rates: tables that instances share are built beside the one that plays.
    for (int round = 0; round < 10 && playing.isPlaying; ++round)
        for (const float sampleRateHz : {44100.0F, 96000.0F, 192000.0F})
            const RunningEffect passing(playing.library, sampleRateHz, kBlockFrames);
}

TEST(Threads, MetersAreReadWhileTheEngineProcesses) {
    ModFilterEngine engine(1);
    engine.setSampleRate(48000.0);
    std::atomic<bool> isPlaying{true};
    std::thread audio([&] {
        auto buffer = noise<double>(kBlockFrames, 4);
        for (int block = 0; block < kBlocks; ++block) {
            auto pointers = buffer.from(0);
            engine.processDouble(pointers.data(), pointers.data(), kBlockFrames);
        }
        isPlaying = false;
    });
    MeterSnapshot meters;
    while (isPlaying) {
        engine.fillMeterSnapshot(meters);
        EXPECT_TRUE(std::isfinite(meters.wetPeak));
    }
    audio.join();
}

} // namespace pedl::test
