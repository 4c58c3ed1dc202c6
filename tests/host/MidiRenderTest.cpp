// MIDI files played to a plug-in: which frame hears what.

#include "tests/host/MidiBytes.h"
#include "tests/host/RenderTest.h"

namespace pedl {
namespace {

using namespace test;

constexpr std::uint32_t kTicksPerQuarter = 480;
constexpr std::uint32_t k125Bpm = 480000; // a tick has 48 frames at 48000 Hz
constexpr int kFramesPerTick = 48;

class MidiRenderTest : public RenderTest {
protected:
    MidiRenderTest() : RenderTest(PEDL_PLUGIN) { writeSaw(24000); }

    void useMidi(const std::string& bytes) {
        writeText(folder_ / "song.mid", bytes);
        request_.midi = folder_ / "song.mid";
    }

    std::vector<double> renderedSamples() { return rendered().samples; }
};

TEST_F(MidiRenderTest, ARampOfAControllerSoundsLikeItsCurveWhateverTheBlockSize) {
    constexpr int kTicksPerStep = 3;
    constexpr int kFramesPerStep = kTicksPerStep * kFramesPerTick;
    request_.settings = {"21=0"};
    std::string track = tempo(0, k125Bpm);
    std::string curve = "0,0\n";
    for (int value = 1; value < 128; ++value) {
        track += controller(kTicksPerStep, 74, value);
        char line[128];
        const double seconds = value * kFramesPerStep / 48000.0;
        std::snprintf(line, sizeof line, "%.17g,%.9g\n%.17g,%.9g\n", seconds,
                      static_cast<double>(static_cast<float>(value - 1) / 127.0F), seconds,
                      static_cast<double>(static_cast<float>(value) / 127.0F));
        curve += line;
    }
    test::writeText(folder_ / "curve.csv", curve);
    request_.automations = {"Filter Cutoff=" + folder_ / "curve.csv"};
    request_.blockFrames = kFramesPerStep;
    const std::vector<double> byCurve = renderedSamples();

    request_.automations.clear();
    request_.links = {"Filter Cutoff=74"};
    useMidi(midiFile(0, kTicksPerQuarter, {track}));
    for (const VstInt32 block : {1, 64, 512, 4096}) {
        request_.blockFrames = block;
        EXPECT_EQ(renderedSamples(), byCurve) << block;
    }
}

TEST_F(MidiRenderTest, TheTempoChangesAtItsFrameAndTheSongGoesOnFromThere) {
    struct Row {
        const char* story;
        std::uint32_t division;
        double quartersAtChange;
    };
    request_.plugin = PEDL_STUB_PLUGIN;
    request_.settings = {"5=0.5"}; // the stub puts out tempo and place, in thousandths
    request_.tempoBpm = 125.0;     // until the file has one
    constexpr std::size_t kChange = 20 * kFramesPerTick;
    for (const Row& row : {Row{"480 ticks a quarter", kTicksPerQuarter, 20.0 / 480.0},
                           Row{"25 frames of 40 ticks: 1 ms", 0xE728, 0.02 * 125.0 / 60.0}})
        for (const VstInt32 block : {1, 64, 512, 4096}) {
            SCOPED_TRACE(testing::Message() << row.story << ", block " << block);
            useMidi(midiFile(0, row.division, {tempo(20, 1000000) + tempo(20, 250000)}));
            request_.blockFrames = block;
            const std::vector<double> out = renderedSamples();
            const bool isMusical = row.division == kTicksPerQuarter;
            // A tick of the same file lasts longer in the slower tempo, a millisecond does not.
            const std::size_t second = kChange + (isMusical ? 2000 : kChange);
            for (const auto& [frame, bpm] : {std::pair{std::size_t{0}, 125.0},
                                             {kChange - 1, 125.0},
                                             {kChange, 60.0},
                                             {second - 1, 60.0},
                                             {second, 240.0}})
                EXPECT_NEAR(out[2 * frame], bpm / 1000.0, 1e-7) << frame;
            EXPECT_NEAR(out[2 * kChange + 1], row.quartersAtChange / 1000.0, 1e-9);
            const double seconds = static_cast<double>(second - kChange) / 48000.0;
            EXPECT_NEAR(out[2 * second + 1], (row.quartersAtChange + seconds) / 1000.0, 1e-9);
        }
}

TEST_F(MidiRenderTest, ASynchronisedLfoFollowsTheTempoFromItsFrameOn) {
    request_.settings = {"LFOsync=hostBPM", "32=1", "33=0.9"};
    const std::string start = tempo(0, k125Bpm);
    useMidi(midiFile(0, kTicksPerQuarter, {start}));
    const std::vector<double> steady = renderedSamples();
    useMidi(midiFile(0, kTicksPerQuarter, {start + tempo(100, k125Bpm / 4)}));
    const std::vector<double> faster = renderedSamples();
    const auto [first, unused] = std::mismatch(steady.begin(), steady.end(), faster.begin());
    const auto frame = (first - steady.begin()) / 2;
    EXPECT_GE(frame, 100 * kFramesPerTick);
    EXPECT_LE(frame, 100 * kFramesPerTick + 256) << "two steps of the engine's controls";
}

TEST_F(MidiRenderTest, WhatCannotBeLinkedIsRefusedBeforeOutIsTouched) {
    test::writeText(request_.out, "precious");
    for (const char* link : {"Filter Cutoff=120", "Filter Cutoff=on", "Filter Cutoff", "99=1"}) {
        request_.links = {link};
        const Result<RenderReport> report = render(request_);
        ASSERT_FALSE(report.ok()) << link;
        EXPECT_TRUE(report.problem().text.starts_with("--link: ")) << report.problem().text;
    }
    request_.links = {"0=1"};
    request_.plugin = PEDL_STUB_PLUGIN;
    EXPECT_FALSE(render(request_).ok());
    request_.links.clear();
    useMidi("no MIDI");
    EXPECT_FALSE(render(request_).ok());
    EXPECT_EQ(test::readText(request_.out), "precious");
}

} // namespace
} // namespace pedl
