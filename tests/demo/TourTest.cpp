#include "demo/Material.h"
#include "demo/tour/SettingTrace.h"
#include "tests/support/ShellCommand.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sndfile.h>

namespace pedl::demo {
namespace {

using test::Outcome;
using test::readText;
using test::TemporaryFolder;

const std::string kSettings = PEDL_DEMO_FOLDER "/settings.json";
const std::string kCurves = PEDL_DEMO_FOLDER "/curves";

/// The settings of the demonstration over a sound of the user's own.
class OwnSoundTour : public testing::Test {
protected:
    /// Strokes of a decaying sine, too loud for full scale.
    void writeOwn(const std::string& name, int channels, double seconds) const {
        SF_INFO info{};
        info.samplerate = 44100;
        info.channels = channels;
        info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
        std::vector<float> samples;
        for (int i = 0; i < static_cast<int>(seconds * info.samplerate); ++i)
            samples.insert(samples.end(), static_cast<std::size_t>(channels),
                           2.0F * std::exp(-0.0004F * static_cast<float>(i % 11025)) *
                               std::sin(0.03F * static_cast<float>(i)));
        SNDFILE* file = sf_open((folder_ / name).c_str(), SFM_WRITE, &info);
        sf_writef_float(file, samples.data(), static_cast<sf_count_t>(samples.size()) / channels);
        sf_close(file);
    }

    Outcome tour(const std::string& arguments) const {
        // The system's fontconfig keeps what it has found; the leak sanitizer finds it.
        test::writeText(folder_ / "leaks", "leak:libfontconfig\n");
        return test::runInShell(folder_,
                                "LSAN_OPTIONS=suppressions=leaks:print_suppressions=0 " PEDL_DEMO
                                " --command " PEDL_COMMAND " --settings '" +
                                    kSettings + "' --material out/material --output out " +
                                    "--input " + arguments);
    }

    /// Of a picture in `out/`, from the file's head.
    int heightOf(const std::string& name) const {
        const std::string head = readText(folder_ / ("out/" + name)).substr(0, 24);
        return static_cast<unsigned char>(head.at(22)) * 256 +
               static_cast<unsigned char>(head.at(23));
    }

    const TemporaryFolder folder_;
};

TEST_F(OwnSoundTour, GivesTheFilesNameToAllAndSaysWhatItMakesOfIt) {
    writeOwn("a<b>& \xC3\xBC?.wav", 1, 0.5);
    const Outcome done = tour("'a<b>& \xC3\xBC?.wav'");
    ASSERT_EQ(done.status, 0) << done.error;
    for (const char* said : {"is mono", "lasts 0.5 s", "peaks at +", "5-gate is left out"})
        EXPECT_NE(done.out.find(said), std::string::npos) << said;
    const auto has = [&](const char* name) {
        return std::filesystem::exists(folder_ / ("out/a<b>& \xC3\xBC?-" + std::string(name)));
    };
    EXPECT_TRUE(has("1-sweep.wav") && has("8-level-dependent.png"));
    EXPECT_FALSE(has("5-gate.wav"));
    // The freeze of three to six seconds out of eight.
    EXPECT_NE(
        readText(folder_ / "out/material/own-curves/frozen.csv").find("\n0.1875,1\n0.375,1\n"),
        std::string::npos);

    const std::string page = readText(folder_ / "out/index.html");
    EXPECT_EQ(page.find("a<b>"), std::string::npos);
    for (const char* text : {"a\\u003cb>& \\u00fc?-1-sweep.wav", "What is loud opens", "is mono"})
        EXPECT_NE(page.find(text), std::string::npos) << text;
}

TEST_F(OwnSoundTour, ShowsLeftAndRightApartAndTheGainWhereTheyMatter) {
    writeOwn("loop.wav", 2, 0.5);
    const Outcome done = tour("loop.wav --tempo 96");
    ASSERT_EQ(done.status, 0) << done.error;
    EXPECT_GT(heightOf("loop-1-sweep.png"), heightOf("loop-2-auto-wah.png"));
    const std::string page = readText(folder_ / "out/index.html");
    const auto gate = page.find("96 BPM");
    const auto gain = page.find("\"gain\":");
    ASSERT_TRUE(gate != std::string::npos && gain != std::string::npos);
    EXPECT_EQ(page.find("\"gain\":", gain + 1), std::string::npos) << "only the gate moves it";
}

TEST_F(OwnSoundTour, RefusesWhatTheEffectDoesNotTake) {
    writeOwn("film.wav", 6, 0.1);
    const Outcome done = tour("film.wav");
    EXPECT_EQ(done.status, 1);
    EXPECT_NE(done.error.find("film.wav: has 6 channels; the effect takes mono or stereo"),
              std::string::npos)
        << done.error;
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out/index.html"));
}

/// How often the cut-off turns round between two times.
int turns(const ModulationTrace& trace, double fromSeconds, double toSeconds) {
    int count = 0;
    for (std::size_t i = 2; i < trace.size(); ++i)
        if (trace[i].seconds > fromSeconds && trace[i].seconds < toSeconds)
            count += (trace[i].cutoffLeftHz > trace[i - 1].cutoffLeftHz) !=
                             (trace[i - 1].cutoffLeftHz > trace[i - 2].cutoffLeftHz)
                         ? 1
                         : 0;
    return count;
}

TEST(Tour, ALoudChordDrivesTheRateUpAndItRelaxesAndASoftOneStirsItLittle) {
    const TemporaryFolder folder;
    const DemoSetting setting = readSettings(kSettings).at(7);
    ASSERT_EQ(setting.name, "8-level-dependent");
    const StereoSound input = ringingChords();
    writeSound(folder / "in.wav", input);
    const Rendering rendering =
        renderByCommand(PEDL_COMMAND, folder / "in.wav", folder / "out.wav", setting, kCurves);
    const ModulationTrace trace =
        traceModulation(setting, kCurves, input, readSound(folder / "out.wav", 9.0), rendering);
    for (const double loudSeconds : {0.0, 4.0}) {
        EXPECT_GE(turns(trace, loudSeconds, loudSeconds + 0.5), 8);
        EXPECT_LE(turns(trace, loudSeconds + 1.3, loudSeconds + 1.8), 2);
        EXPECT_LE(turns(trace, loudSeconds + 2.0, loudSeconds + 2.5), 3);
    }
}

} // namespace
} // namespace pedl::demo
