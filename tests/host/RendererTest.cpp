// Whole files through the stub plug-in, whose output is known sample by sample.

#include "tests/host/RenderTest.h"

#include <fstream>
#include <sndfile.h>
#include <sstream>

namespace pedl {
namespace {

/// Samples that name their place, so that a lost, doubled or swapped one shows.
double marked(long frame, int channel) {
    return static_cast<double>(frame) / 4096.0 * (channel == 0 ? 1.0 : -1.0);
}

class RendererTest : public test::RenderTest {
protected:
    RendererTest() : RenderTest(PEDL_STUB_PLUGIN) { request_.blockFrames = 64; }
};

TEST_F(RendererTest, EverySampleArrivesOnceWhateverTheBlockSize) {
    writeSound(request_.in, 2, 48000, 1000, marked);
    for (const VstInt32 block : {1, 7, 64, 1000, 4096})
        for (const Precision precision : {Precision::Float, Precision::Double}) {
            SCOPED_TRACE(block);
            request_.blockFrames = block;
            request_.precision = precision;
            const Sound out = rendered();
            ASSERT_EQ(out.frames(), 1000U);
            EXPECT_EQ(out.sampleRateHz, 48000);
            EXPECT_EQ(out.format, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
            for (long frame = 0; frame < 1000; ++frame) // the stub's gain is a half
                for (int channel = 0; channel < 2; ++channel)
                    ASSERT_EQ(out.samples[static_cast<std::size_t>(2 * frame + channel)],
                              0.5 * marked(frame, channel));
        }
}

TEST_F(RendererTest, AMonoFileGoesIntoBothInputsAndATailOfSilenceFollows) {
    writeSound(request_.in, 1, 44100, 100, marked);
    request_.tailSeconds = 0.01;
    const Sound out = rendered();
    ASSERT_EQ(out.frames(), 541U);
    for (const std::size_t sample : {198U, 199U})
        EXPECT_EQ(out.samples[sample], 0.5 * marked(99, 0));
    for (const std::size_t sample : {200U, 1081U})
        EXPECT_EQ(out.samples[sample], 0.0);
}

TEST_F(RendererTest, ThePlugInHearsTheTempoAndTheSongMovesByBlocks) {
    writeSound(request_.in, 1, 48000, 192, marked);
    request_.settings = {"5=0.5"}; // the stub puts out tempo and place, in thousandths
    request_.tempoBpm = 150.0;
    const Sound out = rendered();
    EXPECT_NEAR(out.samples[0], 0.150, 1e-7);
    for (const std::size_t block : {0U, 1U, 2U}) {
        const double quarters = static_cast<double>(block) * 64.0 / 48000.0 * 150.0 / 60.0;
        EXPECT_NEAR(out.samples[2 * 64 * block + 1], quarters / 1000.0, 1e-9) << block;
    }
}

TEST_F(RendererTest, ACurveIsReadAtEachBlocksStart) {
    writeSound(request_.in, 1, 48000, 480, [](long, int) { return 1.0; });
    test::writeText(folder_ / "curve.csv", "seconds,value\n0,0\n0.01,1\n"); // 0.01 s: 480 frames
    request_.automations = {"Gain=" + folder_ / "curve.csv"};
    request_.blockFrames = 48;
    const Sound out = rendered();
    for (const std::size_t frame : {0U, 47U, 48U, 95U, 479U})
        EXPECT_NEAR(out.samples[2 * frame], static_cast<double>(frame / 48) * 0.1, 1e-6) << frame;
}

TEST_F(RendererTest, TheEndingNamesTheFormatWhatWasCutIsCountedAndTheBytesAreTheSameAgain) {
    writeSound(request_.in, 2, 48000, 500, [](long, int) { return 3.0; });
    struct Row {
        const char* name;
        int format;
        std::int64_t cut;
    };
    // clang-format off
    for (const Row row : {
        Row{"a",      SF_FORMAT_WAV | SF_FORMAT_FLOAT,   0},
        Row{"a.AIFF", SF_FORMAT_AIFF | SF_FORMAT_FLOAT,  0},
        Row{"a.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 1000},
        Row{"a.ogg",  SF_FORMAT_OGG | SF_FORMAT_VORBIS,  1000},
    }) {
        // clang-format on
        SCOPED_TRACE(row.name);
        request_.out = folder_ / row.name;
        const Result<RenderReport> report = render(request_);
        ASSERT_TRUE(report.ok()) << report.problem().text;
        EXPECT_EQ(readSound(request_.out).format, row.format);
        EXPECT_EQ(report.value().samplesCut, row.cut);
        EXPECT_DOUBLE_EQ(report.value().peak, 1.5);
        const std::string first = test::readText(request_.out);
        rendered();
        if (row.format != (SF_FORMAT_OGG | SF_FORMAT_VORBIS)) { // its stream has a random number
            EXPECT_EQ(test::readText(request_.out), first);
        }
    }
    request_.settings = {"5=1"}; // the stub's left side is then NaN
    EXPECT_EQ(render(request_).value().samplesNotFinite, 500);
}

long residentPages() {
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0;
    statm >> total >> resident;
    return resident;
}

TEST_F(RendererTest, MemoryDoesNotGrowWithTheFile) {
    constexpr long kFrames = 3'000'000; // 24 MB of output
    writeSound(request_.in, 2, 48000, kFrames, marked);
    AudioReader reader = std::move(AudioReader::open(request_.in).value());
    AudioWriter writer = std::move(AudioWriter::create(request_.out, 48000, kFrames).value());
    const std::unique_ptr<Plugin> plugin =
        std::move(Plugin::load(PEDL_STUB_PLUGIN, {48000.0, 512}).value());
    Renderer renderer(*plugin, reader, writer, 512);
    long early = 0;
    long late = 0;
    renderer.onProgress([&](double share) {
        if (early == 0 && share > 0.05)
            early = residentPages();
        if (late == 0 && share > 0.95)
            late = residentPages();
    });
    ASSERT_TRUE(renderer.run(Precision::Float).ok());
    EXPECT_GT(early, 0);
    EXPECT_GT(late, 0);
    EXPECT_LT(late - early, 1250) << "pages; the output between them has 5 thousand";
}

} // namespace
} // namespace pedl
