// The text form: written and read back, written by hand, and broken.

#include "convert/TextForm.h"

#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"
#include "tests/convert/Documents.h"
#include "tests/support/Thoroughness.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using test::as;
using Lines = std::vector<std::string>;

Document read(const std::string& text) {
    return test::valueOf(documentFromText(text));
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
    for (const DocumentKind kind : kDocumentKinds)
        for (unsigned seed = 1; seed <= test::asManyAs(5U); ++seed) {
            const Document before = as(kind, test::randomChunk(seed));
            const Document after = read(textForm(before));
            EXPECT_EQ(after.kind, kind);
            EXPECT_EQ(after.warnings, Lines());
            EXPECT_EQ(storedForm(after), storedForm(before)) << kindName(kind) << ' ' << seed;
        }
}

TEST(TextForm, HasOneParameterALineWithItsText) {
    Document document = factoryDocument();
    document.links.linkValue[1] = linkValueOf(64);
    document.links.linkValue[2] = 1.0F;
    document.programs[0].normalised[kGain] = 0.0001F;
    const std::string text = textForm(document);
    for (const char* lines :
         {"{\n  \"format\": \"ZMT pedlFilter\",\n  \"version\": 1,\n  \"kind\": \"chunk\",\n",
          "  \"programs\": [\n    {\n      \"slot\": 0,\n      \"name\": \"Default\",\n",
          "\n        \"Bypass\": {\"value\": 0, \"text\": \"process\"},\n",
          "\n        \"Gain\": {\"value\": 1e-04, \"text\": \"",
          "\n        \"Filter Cutoff\": {\"value\": 0.566642, \"text\": \"1002\"},\n",
          "}\n      }\n    },\n    {\n      \"slot\": 1,\n",
          "      \"Gain\": {\"controller\": 64, \"name\": \"sustain cc#64\"},\n"
          "      \"FreezMode\": {\"controller\": null, \"value\": 1},\n",
          "{\"controller\": null}\n    }\n  }\n}\n"})
        EXPECT_NE(text.find(lines), std::string::npos) << lines;
}

TEST(TextForm, KeepsTheBytesOfANameThatShowsOtherwise) {
    struct Row {
        std::string stored, shown;
        bool hasBytes;
    };
    const std::string cut(22, 'x');
    for (const Row& row : {Row{"Caf\xC3\xA9", "Caf\xC3\xA9", false},
                           Row{"Caf\xE9", "Caf\xC3\xA9", true}, Row{"A\x01", "A ", true},
                           Row{cut + "\xC3", cut + "\xC3\x83", true}, Row{"\"\\", "\"\\", false}}) {
        Document document = as(DocumentKind::Program, factoryDocument());
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
    EXPECT_EQ(shownName(chunk.programs.at(0).name), "New");
    EXPECT_EQ(chunk.links.linkValue[kGain], linkValueOf(7));
}

TEST(TextForm, WhatIsWrongIsToldInOneLineWithItsPlace) {
    struct Row {
        std::string text;
        const char* says;
    };
    const std::string large(kMaxTextBytes, ' ');
    for (const Row& row : {
             Row{"{" + large + "}", "is larger than 16 MiB"},
             Row{"\xEF\xBB\xBF \n\t{} {", "line 2, column 5"},
             Row{std::string(100000, '['), "nested too deeply"},
             Row{"{\"a\": \"\xFF\"}", "UTF-8"},
             Row{R"({"a": [{"b": 1}, {"b": 1, "b": 2}]})", "a[1]: \"b\" is given twice"},
             Row{R"({"format": "ZMT pedlFilter", "version": 1, "kind": "song"})", "kind: \"song\""},
             Row{chunkWith(R"({"name": "A\u0000"}])"), "control character"},
             Row{chunkWith(R"({"name": "abcdefghijklmnopqrstuvwx"}])"), "longer than 23 bytes"},
             Row{chunkWith(R"({"slot": 139, "name": "A"}, {"name": "B"}])"), "is one too many"},
             Row{chunkWith(R"({"slot": 1, "name": "A"}, {"slot": 1, "name": "B"}])"),
                 "programs: slot 1 is given twice"},
             Row{chunkWith(R"(], "currentSlot": -1)"), "currentSlot: is not a whole number from 0"},
             Row{chunkWith(R"(], "tempo": 120)"), "knows no \"tempo\""},
             Row{chunkWith(R"(], "midi": {"channel": "omni"})"), "is neither \"all\" nor \"off\""},
             Row{chunkWith(R"(], "midi": {"links": {"Gain": 128}})"), "Gain: is not a whole"},
             Row{programWith(R"("Gian": 0)"), "\"A\": no parameter is called \"Gian\"; nearest"},
             Row{programWith(R"("gain": 0)"), "did you mean Gain"},
             Row{programWith(R"("Filter Cutoff": 0, "FltrCut": 0)"), "Cutoff is given twice"},
             Row{programWith(R"("Gain": 1.5)"), "program \"A\", Gain: the value 1.5 is outside 0"},
             Row{programWith(R"("Gain": {})"), "neither a value nor a text"},
             Row{programWith(R"("Gain": "loud")"), "Gain: no value reads \"loud\""},
         }) {
        const std::string told = test::problemOf(documentOf(std::as_bytes(std::span(row.text))));
        EXPECT_NE(told.find(row.says), std::string::npos) << row.says << "\n"
                                                          << told.substr(0, 400);
        EXPECT_EQ(told.find('\n'), std::string::npos) << row.says;
        EXPECT_LT(told.size(), 400U) << row.says;
    }
}

} // namespace
} // namespace pedl
