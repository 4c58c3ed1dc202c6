// Stored files given to a render: the sound is that of the values they hold.

#include "convert/DocumentWriter.h"
#include "tests/host/MidiBytes.h"
#include "tests/host/RenderTest.h"

namespace pedl {
namespace {

constexpr float kCutoff = 0.3F;

class StoredFilesTest : public test::RenderTest {
protected:
    StoredFilesTest() : RenderTest(PEDL_PLUGIN) {
        writeSaw(4800);
        Document chunk = factoryDocument();
        chunk.currentSlot = 3;
        chunk.programs[3].normalised[kFilterCutoffFreq] = kCutoff;
        chunk.links.linkValue[kFilterReso] = linkValueOf(74);
        for (const auto& [kind, name] : {std::pair{DocumentKind::Chunk, "chunk"},
                                         {DocumentKind::Bank, "bank"},
                                         {DocumentKind::Program, "program"},
                                         {DocumentKind::MidiSettings, "links"}}) {
            const std::vector<std::byte> bytes = storedForm(converted(chunk, kind).value());
            test::writeText(folder_ / name,
                            {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
        }
        test::writeText(folder_ / "junk", "junk");
        test::writeText(folder_ / "song.mid",
                        test::midiFile(0, 96, {test::controller(2, 74, 100)}));
    }

    /// The factory's first program, selected as a file's is, with these settings.
    Sound renderedWith(std::vector<std::string> settings) {
        RenderRequest request = request_;
        request.program = "0";
        request.settings = std::move(settings);
        return rendered(request);
    }
};

const std::string kSetCutoff = std::to_string(kFilterCutoffFreq) + "=0.3";
const std::string kSetResonance = std::to_string(kFilterReso) + "=0.75";

TEST_F(StoredFilesTest, AFilesProgramSoundsLikeItsValuesSetByHand) {
    const std::vector<double> plain = renderedWith({}).samples;
    const std::vector<double> byHand = renderedWith({kSetCutoff}).samples;
    ASSERT_NE(byHand, plain);
    for (const char* bank : {"bank", "chunk"}) {
        RenderRequest request = request_;
        request.bank = folder_ / bank;
        EXPECT_EQ(rendered(request).samples, byHand) << "the bank's own current program";
        request.program = "0";
        EXPECT_EQ(rendered(request).samples, plain);
        request.preset = folder_ / "program";
        EXPECT_EQ(rendered(request).samples, byHand) << "the program comes after its slot";
        request.settings = {kSetResonance};
        EXPECT_EQ(rendered(request).samples, renderedWith({kSetCutoff, kSetResonance}).samples);
    }
}

TEST_F(StoredFilesTest, LinksComeFromAChunkFromMidiSettingsOrByHand) {
    request_.midi = folder_ / "song.mid";
    request_.program = "0";
    request_.settings = {kSetCutoff};
    const std::vector<double> unmoved = rendered(request_).samples;
    RenderRequest linked = request_;
    linked.links = {std::to_string(kFilterReso) + "=74"};
    const std::vector<double> moved = rendered(linked).samples;
    ASSERT_NE(moved, unmoved);
    RenderRequest fromFile = request_;
    fromFile.midiSettings = folder_ / "links";
    EXPECT_EQ(rendered(fromFile).samples, moved);
    fromFile.midiSettings.reset();
    fromFile.bank = folder_ / "chunk";
    EXPECT_EQ(rendered(fromFile).samples, moved);
    fromFile.bank = folder_ / "bank";
    EXPECT_EQ(rendered(fromFile).samples, unmoved);
}

TEST_F(StoredFilesTest, TheWrongFileIsRefusedBeforeOutIsTouched) {
    test::writeText(request_.out, "precious");
    struct Row {
        const char *option, *file, *says;
    };
    // clang-format off
    for (const Row& row : {
        Row{"--bank",          "program", "holds a program; give it to --preset"},
        Row{"--bank",          "links",   "holds MIDI settings; give it to --midi-settings"},
        Row{"--preset",        "bank",    "holds a bank; give it to --bank"},
        Row{"--midi-settings", "chunk",   "holds a host chunk; give it to --bank"},
        Row{"--bank",          "junk",    "junk: "},
        Row{"--preset",        "gone",    "gone: "},
        Row{"--preset",        ".",       ": "},
    }) {
        // clang-format on
        SCOPED_TRACE(testing::Message() << row.option << " " << row.file);
        RenderRequest request = request_;
        const std::string option = row.option;
        (option == "--bank"     ? request.bank
         : option == "--preset" ? request.preset
                                : request.midiSettings) = folder_ / row.file;
        Result<RenderReport> report = render(request);
        ASSERT_FALSE(report.ok());
        EXPECT_TRUE(report.problem().text.starts_with(option + ": ")) << report.problem().text;
        EXPECT_NE(report.problem().text.find(row.says), std::string::npos) << report.problem().text;
        request.plugin = PEDL_STUB_PLUGIN;
        report = render(request);
        ASSERT_FALSE(report.ok());
        EXPECT_NE(report.problem().text.find("only ZMTpedlFilter.so"), std::string::npos);
    }
    EXPECT_EQ(test::readText(request_.out), "precious");
}

} // namespace
} // namespace pedl
