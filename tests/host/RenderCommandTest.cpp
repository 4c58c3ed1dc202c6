// Whole files through the stub plug-in, whose output is known sample by sample, and through our
// own.

#include "host/RenderCommand.h"

#include "convert/DocumentWriter.h"
#include "tests/convert/Documents.h"
#include "tests/host/MidiBytes.h"
#include "tests/host/SoundFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using namespace test;
using Samples = std::vector<double>;

/// Samples that name their place, so that a lost, doubled or swapped one shows.
double marked(long frame, int channel) {
    return static_cast<double>(frame) / 4096.0 * (channel == 0 ? 1.0 : -1.0);
}

class Render : public testing::Test {
protected:
    explicit Render(const char* plugin = PEDL_STUB_PLUGIN) {
        request.in = folder / "in.wav";
        request.out = folder / "out.wav";
        request.plugin = plugin;
    }

    Samples rendered(std::vector<std::string> settings = {}) {
        request.start.settings = std::move(settings);
        report = valueOf(render(request));
        return readSound(request.out).samples;
    }

    void useMidi(std::uint32_t division, const std::string& track) {
        request.midi = folder / "song.mid";
        writeText(*request.midi, midiFile(0, division, {track}));
    }

    TemporaryFolder folder;
    RenderRequest request;
    RenderReport report;
};

TEST(Plugin, TextsOfOtherValuesAndProgramsThatDoNotExistChangeNothing) {
    const std::unique_ptr<Plugin> stub = valueOf(Plugin::load(PEDL_STUB_PLUGIN));
    EXPECT_EQ(stub->displayTextAt(0, 0.25F), "25.0");
    EXPECT_FALSE(stub->selectProgram(-1) || stub->selectProgram(2));
    EXPECT_EQ(stub->parameter(0), 0.5F);
}

TEST_F(Render, EverySampleArrivesOnceWhateverTheBlockSize) {
    writeSound(request.in, 2, 48000, 1000, marked);
    Samples expected; // the stub's gain is a half
    for (long frame = 0; frame < 1000; ++frame)
        for (const int channel : {0, 1})
            expected.push_back(0.5 * marked(frame, channel));
    for (const VstInt32 block : {1, 7, 4096})
        for (const Precision precision : {Precision::Float, Precision::Double}) {
            request.blockFrames = block;
            request.precision = precision;
            EXPECT_EQ(rendered(), expected) << block;
        }
}

TEST_F(Render, AMonoFileGoesIntoBothInputsAndATailOfSilenceFollows) {
    writeSound(request.in, 1, 44100, 100, marked);
    request.blockFrames = 64;
    request.tailSeconds = 0.01;
    const Samples out = rendered();
    ASSERT_EQ(out.size(), 2U * 541U);
    EXPECT_EQ(out[198], 0.5 * marked(99, 0));
    EXPECT_EQ(out[199], 0.5 * marked(99, 0));
    EXPECT_EQ(Samples(out.begin() + 200, out.end()), Samples(882, 0.0));
}

/// The stub's sound is over with its input; our filter rings.
TEST_F(Render, ATailThatWaitsForSilenceEndsWithTheSound) {
    const auto click = [](long frame, int) { return frame == 0 ? 0.9 : 0.0; };
    writeSound(request.in, 2, 48000, 100, click);
    request.tailSeconds = 2.0;
    request.tailEndsInSilence = true;
    EXPECT_EQ(rendered().size(), 200U);
    request.plugin = PEDL_PLUGIN;
    for (const VstInt32 block : {64, 1000}) {
        request.blockFrames = block;
        const Samples out = rendered({"Filter Cutoff=100", "Filter Q=80"});
        ASSERT_GT(out.size(), 2000U);
        EXPECT_LT(out.size(), 2U * 96000U);
        EXPECT_GT(std::max(std::abs(out.back()), std::abs(out[out.size() - 2])), 1e-5);
        EXPECT_FALSE(report.endsInSound);
    }
    request.tailSeconds = 0.01;
    rendered({"Filter Cutoff=100", "Filter Q=80"});
    EXPECT_TRUE(report.endsInSound);
}

TEST_F(Render, ACurveIsReadAtEachBlocksStart) {
    writeSound(request.in, 1, 48000, 480, [](long, int) { return 1.0; });
    writeText(folder / "curve.csv", "\xEF\xBB\xBFseconds,value\r\n# a fall\r\n 0.001 , 1\r\n\r\n"
                                    "0.006,0.5\r\n0.006,0\r\n0.008,0.5\r\n");
    request.automations = {"Gain=" + folder / "curve.csv"};
    request.blockFrames = 48; // 1 ms
    const Samples out = rendered();
    writeText(folder / "curve.csv", "seconds,text\n0.001,100 %\n0.006,50\n0.006,0\n0.008,50%\n");
    EXPECT_EQ(rendered(), out);
    const Samples expected{1.0, 1.0, 0.9, 0.8, 0.7, 0.6, 0.0, 0.25, 0.5, 0.5};
    for (std::size_t frame = 0; frame < 480; ++frame)
        EXPECT_NEAR(out.at(2 * frame), expected[frame / 48], 1e-6) << frame;
}

TEST_F(Render, TheEndingNamesTheFormatWhatWasCutIsCountedAndTheBytesAreTheSameAgain) {
    writeSound(request.in, 2, 48000, 500, [](long, int) { return 3.0; });
    struct Row {
        const char* name;
        int format;
        std::int64_t cut;
    };
    for (const Row row : {Row{"a.AIFF", SF_FORMAT_AIFF | SF_FORMAT_FLOAT, 0},
                          Row{"a.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 1000},
                          Row{"a.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 1000},
                          Row{"a", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0}}) {
        request.out = folder / row.name;
        rendered();
        EXPECT_EQ(readSound(request.out).info.format, row.format) << row.name;
        EXPECT_EQ(report.samplesCut, row.cut) << row.name;
        EXPECT_DOUBLE_EQ(report.peak, 1.5);
    }
    const std::string first = readText(request.out);
    std::filesystem::permissions(request.out, std::filesystem::perms(0640));
    rendered();
    EXPECT_EQ(readText(request.out), first);
    EXPECT_EQ(std::filesystem::status(request.out).permissions(), std::filesystem::perms(0640));
    rendered({"Output=100"}); // the stub's left side is then NaN
    EXPECT_EQ(report.samplesNotFinite, 500);
}

TEST_F(Render, TheTempoChangesAtItsFrameAndTheSongGoesOnFromThere) {
    constexpr std::size_t kChange = 960; // 20 ticks of 48 frames
    writeSound(request.in, 2, 48000, 4000, marked);
    request.tempoBpm = 125.0; // until the file has one
    struct Row {
        std::uint32_t division;
        double quartersAtChange;
        std::size_t second; // a tick lasts longer in the slower tempo, a millisecond does not
    };
    for (const Row& row : {Row{480, 20.0 / 480.0, kChange + 2000},         // ticks a quarter
                           Row{0xE728, 0.02 * 125.0 / 60.0, 2 * kChange}}) // of 1 ms
        for (const VstInt32 block : {1, 512}) {
            SCOPED_TRACE(testing::Message() << row.division << ", block " << block);
            useMidi(row.division, tempo(20, 1000000) + tempo(20, 250000));
            request.blockFrames = block;
            const Samples out = rendered({"Output=50"}); // tempo and place, in thousandths
            for (const auto& [frame, bpm] : {std::pair{std::size_t{0}, 125.0},
                                             {kChange - 1, 125.0},
                                             {kChange, 60.0},
                                             {row.second - 1, 60.0},
                                             {row.second, 240.0}})
                EXPECT_NEAR(out.at(2 * frame), bpm / 1000.0, 1e-7) << frame;
            EXPECT_NEAR(out.at(2 * kChange + 1), row.quartersAtChange / 1000.0, 1e-9);
            const double quarters = static_cast<double>(row.second - kChange) / 48000.0;
            EXPECT_NEAR(out.at(2 * row.second + 1), (row.quartersAtChange + quarters) / 1000.0,
                        1e-9);
        }
}

/// Each is asked for the factory's first program, unless a test says otherwise.
class RenderOfOurs : public Render {
protected:
    RenderOfOurs() : Render(PEDL_PLUGIN) {
        // A saw: every filter setting sounds different.
        writeSound(request.in, 2, 48000, 4800,
                   [](long frame, int) { return static_cast<double>(frame % 100) / 200.0 - 0.25; });
        Document chunk = factoryDocument();
        chunk.currentSlot = 3;
        chunk.programs[3].normalised = chunk.programs[0].normalised;
        chunk.programs[3].normalised[kFilterCutoffFreq] = 0.3F;
        chunk.links.linkValue[kFilterReso] = linkValueOf(74);
        for (const DocumentKind kind : kDocumentKinds)
            writeText(folder / kindEnding(kind), textOf(storedForm(as(kind, chunk))));
        request.start.program = "0";
    }

    const std::string cutoff = std::to_string(kFilterCutoffFreq) + "=0.3";
    const std::string resonance = std::to_string(kFilterReso) + "=0.75";
};

TEST_F(RenderOfOurs, AControllerMovesItsLinkAtItsFrameWhateverTheBlockSize) {
    request.start.links = {"Filter Cutoff=74"};
    useMidi(480,
            tempo(0, 480000) + controller(50, 74, 100) + controller(20, 74, 3)); // 48 frames a tick
    request.blockFrames = 1;
    const Samples moved = rendered();
    for (const VstInt32 block : {512, 4096}) {
        request.blockFrames = block;
        EXPECT_EQ(rendered(), moved) << block;
    }
    request.start.links.clear();
    const Samples unmoved = rendered();
    const auto first = std::ranges::mismatch(moved, unmoved).in1 - moved.begin();
    EXPECT_GE(first, 2 * 50 * 48);
    EXPECT_LE(first, 2 * (50 * 48 + 256)) << "two steps of the engine's controls";
}

TEST_F(RenderOfOurs, AFileSoundsLikeItsValuesAndItsLinksSetByHand) {
    useMidi(96, controller(2, 74, 100));
    const Samples plain = rendered();
    const Samples byHand = rendered({cutoff});
    const Samples both = rendered({cutoff, resonance});
    request.start.links = {std::to_string(kFilterReso) + "=74"};
    const Samples moved = rendered();
    ASSERT_TRUE(byHand != plain && moved != plain);
    request.start.links.clear();
    request.start.midiSettings = folder / ".zmm";
    EXPECT_EQ(rendered(), moved);
    request.start.midiSettings.reset();
    request.start.bank = folder / ".chunk";
    EXPECT_EQ(rendered(), moved) << "a chunk brings its links";
    request.start.bank = folder / ".zmb";
    EXPECT_EQ(rendered(), plain);
    request.start.preset = folder / ".zmt";
    EXPECT_EQ(rendered(), byHand) << "the program comes after its slot";
    EXPECT_EQ(rendered({resonance}), both);
    request.start.preset.reset();
    request.start.program.reset();
    EXPECT_EQ(rendered(), byHand) << "the bank's own current program";
}

} // namespace
} // namespace pedl
