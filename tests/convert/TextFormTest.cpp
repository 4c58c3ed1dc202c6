// The text form: written and read back, written by hand, and broken.

#include "convert/TextForm.h"

#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"
#include "parameters/ParameterIndex.h"
#include "tests/convert/Documents.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using Lines = std::vector<std::string>;

Document read(const std::string& text) {
    const Result<Document> document = documentFromText(text);
    EXPECT_TRUE(document.ok()) << document.problem().text;
    return document.ok() ? document.value() : factoryDocument();
}

/// A program named "A" with these parameters, in the text form.
std::string programWith(const std::string& parameters) {
    return R"({"format": "ZMT pedlFilter", "version": 1, "kind": "program",
               "program": {"name": "A", "parameters": {)" +
           parameters + "}}}";
}

std::string chunkWith(const std::string& members) {
    return R"({"format": "ZMT pedlFilter", "version": 1, "kind": "chunk", "programs": [)" +
           members + "}";
}

float valueOf(const Document& document, std::int32_t parameter) {
    return document.programs.at(0).normalised.at(static_cast<std::size_t>(parameter));
}

TEST(TextForm, ComesBackBitForBit) {
    for (const DocumentKind kind : {DocumentKind::Program, DocumentKind::Bank,
                                    DocumentKind::MidiSettings, DocumentKind::Chunk})
        for (unsigned seed = 1; seed < 6; ++seed) {
            const Document before = converted(test::randomChunk(seed), kind).value();
            const Document after = read(textForm(before));
            EXPECT_EQ(after.kind, kind);
            EXPECT_EQ(after.warnings, Lines());
            EXPECT_EQ(storedForm(after), storedForm(before)) << kindName(kind) << ' ' << seed;
        }
}

TEST(TextForm, HasOneParameterALineWithItsText) {
    const std::string text = textForm(factoryDocument());
    EXPECT_NE(
        text.find("\n        \"Filter Cutoff\": {\"value\": 0.566642, \"text\": \"1002\"},\n"),
        std::string::npos);
    Document linked = factoryDocument();
    linked.links.linkValue[1] = linkValueOf(64);
    linked.links.linkValue[2] = 1.0F;
    EXPECT_NE(
        textForm(linked).find("      \"Gain\": {\"controller\": 64, \"name\": \"sustain cc#64\"},\n"
                              "      \"FreezMode\": {\"controller\": null, \"value\": 1},\n"),
        std::string::npos);
}

TEST(TextForm, KeepsTheBytesOfANameThatShowsOtherwise) {
    struct Row {
        std::string stored, shown;
        bool hasBytes;
    };
    const std::string cut(22, 'x');
    for (const Row& row : {Row{"Organ", "Organ", false}, Row{"Caf\xC3\xA9", "Caf\xC3\xA9", false},
                           Row{"Caf\xE9", "Caf\xC3\xA9", true}, Row{"A\x01", "A ", true},
                           Row{cut + "\xC3", cut + "\xC3\x83", true}, Row{"\"\\", "\"\\", false}}) {
        Document document = converted(factoryDocument(), DocumentKind::Program).value();
        document.programs[0].name = toProgramName(row.stored);
        const std::string text = textForm(document);
        EXPECT_EQ(text.find("nameBytes") != std::string::npos, row.hasBytes) << row.shown;
        EXPECT_EQ(shownName(document.programs[0].name), row.shown);
        EXPECT_EQ(read(text).programs.at(0).name, document.programs[0].name) << row.shown;
    }
}

TEST(TextForm, CanBeWrittenByHand) {
    const Document program = read(programWith(
        R"("Gain": 0.7, "FltrCut": {"text": "440 Hz"}, "Filter Slope": "12 dB", "Parameter 22": 1)"));
    EXPECT_EQ(valueOf(program, kGain), 0.7F);
    EXPECT_EQ(parameterDisplay(kFilterCutoffFreq, valueOf(program, kFilterCutoffFreq)), "440");
    EXPECT_EQ(parameterDisplay(kFilterPole, valueOf(program, kFilterPole)), "12 dB");
    EXPECT_EQ(valueOf(program, kFilterFreqMin), 1.0F);
    EXPECT_EQ(valueOf(program, kLimiterDefeat), 1.0F); // not given: that of "Default"

    const Document chunk = read(chunkWith(
        R"({"slot": 3, "name": "C"}, {"name": "D"}], "currentSlot": 4,
           "midi": {"channel": 2, "links": {"Gain": 7, "Dry": {"controller": 8}, "Wet": null}})"));
    EXPECT_EQ(shownName(chunk.programs.at(4).name), "D");
    EXPECT_EQ(shownName(chunk.programs.at(1).name), "Auto Wah");
    EXPECT_EQ(chunk.currentSlot, 4);
    EXPECT_EQ(chunk.links.channel, 2);
    EXPECT_EQ(chunk.links.controllerOf(kGain), 7);
    EXPECT_EQ(chunk.links.controllerOf(kDry), 8);
}

TEST(TextForm, OfTwoThingsThatDisagreeTheStoredOneCountsAndTheUserIsTold) {
    const Document program =
        read(programWith(R"("Filter Cutoff": {"value": 0.566642, "text": "440"})"));
    EXPECT_EQ(valueOf(program, kFilterCutoffFreq), 0.566642F);
    EXPECT_EQ(program.warnings,
              Lines{"program \"A\", Filter Cutoff: the value 0.566642 reads \"1002\" and not "
                    "\"440\"; the value counts, without it the text would"});

    const Document chunk =
        read(chunkWith(R"({"name": "New", "nameBytes": ")" + std::string(48, '4') + R"("}],
           "midi": {"links": {"Gain": {"controller": 7, "name": "pan cc#10", "value": 0.1}}})"));
    EXPECT_EQ(chunk.warnings.size(), 3U);
    EXPECT_EQ(shownName(chunk.programs[0].name), "New");
    EXPECT_EQ(chunk.links.linkValue[kGain], linkValueOf(7));
}

TEST(TextForm, WhatIsWrongIsToldInOneLineWithItsPlace) {
    const std::string deep(100000, '[');
    struct Row {
        std::string text;
        const char* says;
    };
    for (const Row& row : {
             Row{"{", "line 1, column 2"},
             Row{"{} {", "line 1, column 4"},
             Row{deep, "nested too deeply"},
             Row{"{\"a\": \"\xFF\"}", "UTF-8"},
             Row{"{\"a\": 1e999}", "1e999"},
             Row{R"({"a": {"b": 1, "b": 2}})", "a: \"b\" is given twice"},
             Row{"[]", "is not an object"},
             Row{R"({"format": "other"})", "is not a text form of the plug-in"},
             Row{R"({"format": "ZMT pedlFilter", "version": 2})", "version: is not 1"},
             Row{R"({"format": "ZMT pedlFilter", "version": 1, "kind": "song"})", "kind: \"song\""},
             Row{chunkWith("7]"), "programs[0]: is not an object"},
             Row{chunkWith("{}]"), "program 0: \"name\" is missing"},
             Row{chunkWith(R"({"name": 7}])"), "program 0, name: is not a text"},
             Row{chunkWith(R"({"name": "A\u0000"}])"), "control character"},
             Row{chunkWith(R"({"name": "abcdefghijklmnopqrstuvwx"}])"), "longer than 23 bytes"},
             Row{chunkWith(R"({"nameBytes": "4"}])"), "nameBytes: is not 48 hexadecimal"},
             Row{chunkWith(R"({"slot": 140, "name": "A"}])"), "slot: is not a whole number from 0"},
             Row{chunkWith(R"({"slot": 139, "name": "A"}, {"name": "B"}])"), "is one too many"},
             Row{chunkWith(R"({"slot": 1, "name": "A"}, {"slot": 1, "name": "B"}])"),
                 "programs: slot 1 is given twice"},
             Row{chunkWith(R"(], "currentSlot": -1)"), "currentSlot: is not a whole number"},
             Row{chunkWith(R"(], "currentSlot": 18446744073709551615)"), "is not a whole number"},
             Row{chunkWith(R"(], "tempo": 120)"), "knows no \"tempo\""},
             Row{chunkWith(R"(], "midi": {"channel": 17})"),
                 "midi, channel: is not a whole number"},
             Row{chunkWith(R"(], "midi": {"channel": "omni"})"), "is neither \"all\" nor \"off\""},
             Row{chunkWith(R"(], "midi": {"links": {"Gain": 128}})"),
                 "links, Gain: is not a whole"},
             Row{programWith(R"("Gian": 0)"),
                 "program \"A\": no parameter is called \"Gian\"; nea"},
             Row{programWith(R"("gain": 0)"), "did you mean Gain"},
             Row{programWith(R"("": 0)"), "parameter"},
             Row{programWith(R"("Gain": 0, "Gain": 0)"), "program.parameters: \"Gain\" is given"},
             Row{programWith(R"("Filter Cutoff": 0, "FltrCut": 0)"),
                 "Filter Cutoff is given twice"},
             Row{programWith(R"("Gain": 1.5)"), "program \"A\", Gain: the value 1.5 is outside 0"},
             Row{programWith(R"("Gain": -1)"), "Gain: the value -1 is outside"},
             Row{programWith(R"("Gain": [0])"), "Gain: the value is not a number"},
             Row{programWith(R"("Gain": {})"), "neither a value nor a text"},
             Row{programWith(R"("Gain": "loud")"), "Gain: no value reads \"loud\""},
             Row{programWith(R"("Gain": {"value": 0, "unit": "dB"})"), "knows no \"unit\""},
         }) {
        const Result<Document> document = documentFromText(row.text);
        ASSERT_FALSE(document.ok()) << row.text;
        const std::string& told = document.problem().text;
        EXPECT_NE(told.find(row.says), std::string::npos) << told;
        EXPECT_EQ(told.find('\n'), std::string::npos) << told;
        EXPECT_LT(told.size(), 400U);
    }
}

TEST(TextForm, IsToldFromOtherContentsAndHasASizeLimit) {
    EXPECT_TRUE(looksLikeText("\xEF\xBB\xBF \n\t{"));
    EXPECT_FALSE(looksLikeText("FpMZ{"));
    EXPECT_FALSE(looksLikeText("  "));
    const test::TemporaryFolder folder;
    test::writeText(folder / "large.json", "{" + std::string(kMaxTextBytes, ' ') + "}");
    const Result<Document> document = readDocument(folder / "large.json");
    ASSERT_FALSE(document.ok());
    EXPECT_TRUE(document.problem().text.ends_with("large.json: is larger than 16 MiB"));
}

} // namespace
} // namespace pedl
