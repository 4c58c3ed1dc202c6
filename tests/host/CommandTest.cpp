// The command as a user runs it: what it says, what it returns, what it leaves behind.

#include "convert/DocumentWriter.h"
#include "tests/convert/Documents.h"
#include "tests/host/MidiBytes.h"
#include "tests/host/SoundFiles.h"
#include "tests/support/ShellCommand.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <csignal>
#include <sstream>

namespace pedl {
namespace {

using namespace test;

const std::string kLeaksOfOthers = "export ASAN_OPTIONS=detect_leaks=0"; // are not ours to see

class CommandTest : public testing::Test {
protected:
    CommandTest() {
        const auto half = [](long, int) { return 0.5; };
        writeSound(folder_ / "in.wav", 2, 48000, 4800, half);
        writeSound(folder_ / "low.wav", 1, 22050, 100, half);
        writeSound(folder_ / "quad.wav", 4, 48000, 100, half);
        symlink("in.wav", (folder_ / "soft.wav").c_str());
        const Document chunk = randomChunk(8);
        for (const DocumentKind kind : kDocumentKinds)
            writeText(folder_ / ("a" + kindEnding(kind)), textOf(storedForm(as(kind, chunk))));
        writeText(folder_ / "words", "these are only words");
        writeText(folder_ / "bad.json", "{");
        writeText(folder_ / "high.csv", "a,b\n# from 0 to 2\n0,0\n1,2\n");
        writeText(folder_ / "unit.csv", "0,200 Hz\n1,2 miles\n");
        writeText(folder_ / "back.csv", "2,0\n1,0\n");
        writeText(folder_ / "kept", "precious");
        names_ = folder_.names();
    }

    /// With our own plug-in, which the command finds by itself; $STUB is another one.
    Outcome run(const std::string& arguments,
                const std::string& before = "ulimit -c 0 && unset DISPLAY") {
        return runInShell(folder_, "STUB='" PEDL_STUB_PLUGIN "' && " + before +
                                       " && exec '" PEDL_COMMAND "' " + arguments);
    }

    /// It ended with this status and one line on standard error, and everything is as it was.
    void expectRefused(const Outcome& outcome, int status, const std::string& says) {
        EXPECT_EQ(outcome.status, status);
        EXPECT_TRUE(outcome.error.starts_with("zmt-pedlfilter: ")) << outcome.error;
        EXPECT_EQ(outcome.error.find('\n'), outcome.error.size() - 1) << outcome.error;
        EXPECT_NE(outcome.error.find(says), std::string::npos) << says << "\n" << outcome.error;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(folder_.names(), names_);
        EXPECT_EQ(readText(folder_ / "kept"), "precious");
    }

    TemporaryFolder folder_;
    std::vector<std::string> names_;
};

TEST_F(CommandTest, WhatCannotBeDoneIsOneClearLineAndLeavesEverythingAsItWas) {
    struct Row {
        int status;
        const char *arguments, *says;
    };
    // clang-format off
    for (const Row& row : {
        Row{1, "render gone.wav kept", "gone.wav: No such file or directory"},
        Row{1, "render words kept", "words: is not audio"},
        Row{1, "render low.wav kept", "sample rate of 22050 Hz"},
        Row{1, "render quad.wav kept", "has 4 channels"},
        Row{1, "render in.wav soft.wav", "soft.wav: is the same file as in.wav"},
        Row{1, "render in.wav out.xyz", "ending .xyz cannot be written"},
        Row{1, "render in.wav gone/out.wav", "cannot be written in the folder gone"},
        Row{1, "render in.wav /dev/full", "/dev/full: cannot be written: No space left"},
        Row{1, "render in.wav kept --program 'Auto Waw'", "--program: no program is called"},
        Row{1, "render in.wav kept --set 'Filter Cutoff=30000'", "\"30000\" is outside 20 .. 20000 Hz"},
        Row{1, "render in.wav kept --set 'Filter Cutoff=4 ms'", "\"4 ms\" is not understood; it shows"},
        Row{1, "render in.wav kept --automate 0=high.csv", "high.csv:4: the value is outside"},
        Row{1, "render in.wav kept --automate cutoff=unit.csv", "unit.csv:2: parameter 21 (FltrCut"},
        Row{1, "render in.wav kept --automate 0=back.csv", "back.csv:2: the time goes back"},
        Row{1, "render in.wav kept --automate 0=words", "words:1: is not \"seconds,value\""},
        Row{1, "render in.wav kept --midi words", "--midi: words: is not a MIDI file"},
        Row{1, "render in.wav kept --link 'Filter Cutoff=120'", "\"120\" is not a controller"},
        Row{1, "render in.wav kept --link 0=1 --plugin $STUB", "--link: only ZMTpedlFilter.so"},
        Row{1, "render in.wav kept --bank a.zmb --plugin $STUB", "--bank: only ZMTpedlFilter.so"},
        Row{1, "render in.wav kept --bank a.zmt", "a.zmt: holds a program; give it to --preset"},
        Row{1, "render in.wav kept --preset a.zmm", "settings; give it to --midi-settings"},
        Row{1, "render in.wav kept --midi-settings a.chunk", "a host chunk; give it to --bank"},
        Row{1, "render in.wav kept --set 0=1.5", "(Byps): 1.5 is outside 0 .. 1"},
        Row{1, "render in.wav kept --set Gain", "\"Gain\" is not PARAMETER=VALUE"},
        Row{1, "programs --plugin gone.so", "gone.so: no such plug-in file"},
        Row{1, "programs --plugin .", ".: is a folder"},
        Row{1, "programs --plugin ./words", "words: cannot be loaded: "},
        Row{1, "programs --plugin /lib/x86_64-linux-gnu/libm.so.6", "exports neither VSTPluginMain"},
        Row{2, "render in.wav kept --tempo nan", "--tempo: \"nan\""},
        Row{2, "render in.wav kept --block 2.5", "--block: \"2.5\""},
        Row{2, "render in.wav kept --tail=-1", "--tail: \"-1\""},
        Row{2, "render in.wav", "OUT is required"},
        Row{2, "render in.wav quad.wav kept", "IN and OUT are two files, not 3; --to FOLDER"},
        Row{2, "render in.wav ./in.wav --to x", "in.wav and ./in.wav would both become x/in.wav"},
        Row{2, "render in.wav --to kept", "kept: is no folder"},
        Row{2, "render in.wav kept --format mp3", "--format: \"mp3\" is no format; there are .wav,"},
        Row{1, "render in.wav kept.ogg --bits 16", ".ogg has no samples of 16 bits"},
        Row{1, "render - kept < words", "standard input: is not audio"},
        Row{2, "rendr in.wav kept", "there is no command \"rendr\"; did you mean render?"},
        Row{2, "render in.wav kept --prgram X", "no option --prgram; did you mean --program?"},
        Row{2, "--verison", "there is no option --verison; did you mean --version?"},
        Row{1, "render \"$(printf 'g\\033[31mo\\nne')\" kept", "g [31mo ne: No such file or directory"},
        Row{1, "convert gone.zmb kept.zmb", "gone.zmb: No such file or directory"},
        Row{1, "convert bad.json kept.zmb", "bad.json: line 1, column 2"},
        Row{1, "convert words kept.zmb", "words: is no program, bank, MIDI settings"},
        Row{1, "convert a.zmm kept.zmb", "a.zmm: holds MIDI settings: there is no program"},
        Row{1, "convert a.zmb x.zmm", "a.zmb: holds a bank: there are no MIDI links in it"},
        Row{1, "convert a.zmb x.wav", "form; .zmt is a program, .zmb a bank, .zmm MIDI settings, "},
        Row{1, "convert a.zmb gone/x.zmb", "gone/x.zmb: cannot be written: No such file"},
        Row{1, "convert a.zmb kept.zmb --program 140", "there is no program 140"},
        Row{1, "convert a.zmt kept.zmb --program 0", "a.zmt: holds a program: only banks"},
        Row{1, "show", "DISPLAY is not set"},
        Row{1, "show --screenshot gone/x.png", "gone/x.png: cannot be written in the folder gone"},
        Row{1, "show --play in.wav --screenshot soft.wav", "soft.wav: is a file that is read"},
        Row{1, "show --play words", "--play: words: is not audio"},
        Row{2, "show --scale 5", "--scale: \"5\" is not a number from 0.5 to 4"},
        Row{2, "show --seconds=-1", "--seconds: \"-1\""},
        Row{1, "convert a.zmb kept.zmb --slot 140=a.zmt", "--slot: there is no slot 140"},
        Row{1, "convert a.zmb kept.zmb --slot 1=a.chunk", "a host chunk, not a program"},
        Row{1, "convert a.zmt a.zmb kept.zmb", "a.zmb: holds a bank, not a program"},
        Row{1, "convert a.zmt a.zmt kept.zmt", "kept.zmt: holds no bank, which several"},
        Row{2, "convert a.zmb --to x --program 1", "--to takes one bank apart"},
        Row{1, "convert a.zmt --to x", "a.zmt: holds a program, not a bank"},
        Row{2, "diff - -", "standard input can be read once"},
        Row{2, "diff a.zmb", "B is required, or --program"},
        Row{2, "diff a.zmb gone.zmb", "gone.zmb: No such file"},
        Row{2, "diff a.zmb a.zmm", "nothing to compare"},
    }) {
        // clang-format on
        SCOPED_TRACE(row.arguments);
        expectRefused(run(row.arguments), row.status, row.says);
    }
    // A limit on the size of files stands for a full disk: the write fails alike, for any user.
    expectRefused(run("render in.wav kept", "ulimit -f 16"), 1,
                  "cannot be written: File too large");
}

TEST_F(CommandTest, ManyFilesGoIntoAFolderOneThatFailsAsideAndNoneIsReplacedAgainstTheWish) {
    const Outcome all = run("render in.wav gone.wav low.wav --to new/x --format flac --bits 16");
    EXPECT_EQ(all.status, 1);
    EXPECT_TRUE(all.out.starts_with("new/x/in.flac: 0.10 s")) << all.out;
    EXPECT_EQ(readSound(folder_ / "new/x/in.flac").info.format, SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    EXPECT_EQ(run("render in.wav alone.flac --bits 16 --quiet").out, "");
    EXPECT_EQ(readText(folder_ / "alone.flac"), readText(folder_ / "new/x/in.flac"));
    EXPECT_EQ(run("render in.wav kept --no-clobber").error,
              "zmt-pedlfilter: kept: exists and stays as it is\n");
    EXPECT_EQ(readText(folder_ / "kept"), "precious");
}

TEST_F(CommandTest, SoundGoesThroughPipesLikeThroughFiles) {
    for (const std::string format : {"wav", "aiff", "flac"}) {
        SCOPED_TRACE(format);
        const std::string file = "out." + format, piped = "piped." + format;
        EXPECT_EQ(run("render in.wav " + file).status, 0);
        run("render - - --format " + format + " < in.wav 2> told | cat > " + piped + "; true");
        EXPECT_TRUE(readText(folder_ / "told").starts_with("standard output: 0.10 s"));
        if (format != "flac") { // which has no length then, but all the rest
            EXPECT_EQ(readText(folder_ / piped), readText(folder_ / file));
            continue;
        }
        EXPECT_EQ(run("render out.flac a.wav").status, 0);
        EXPECT_EQ(run("render piped.flac b.wav").error, "");
        EXPECT_EQ(readSound(folder_ / "b.wav").samples, readSound(folder_ / "a.wav").samples);
    }
    std::string open = readText(folder_ / "in.wav"); // of somebody who could not know
    open.replace(open.find("data") + 4, 4, "\xFF\xFF\xFF\xFF");
    writeText(folder_ / "open.wav", open);
    EXPECT_EQ(run("render - open-out.wav; }", "cat open.wav | { true").error, "");
    EXPECT_TRUE(readText(folder_ / "open-out.wav").starts_with("RIFF")) << "no need of an RF64";
    EXPECT_EQ(readSound(folder_ / "open-out.wav").samples, readSound(folder_ / "out.wav").samples);
}

TEST_F(CommandTest, TagsAreKept) {
    SF_INFO info{0, 48000, 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
    {
        const auto file = opened(folder_ / "tagged.wav", SFM_WRITE, info);
        sf_set_string(file.get(), SF_STR_TITLE, "Riff");
        const std::array<short, 4> samples{};
        sf_writef_short(file.get(), samples.data(), 2);
    }
    EXPECT_EQ(run("render tagged.wav out.flac").status, 0);
    const auto file = opened(folder_ / "out.flac", SFM_READ, info);
    EXPECT_STREQ(sf_get_string(file.get(), SF_STR_TITLE), "Riff");
}

TEST_F(CommandTest, TheFactorysProgramsAreHeardWhateverTheUserHasStored) {
    const std::string own = "mkdir -p x/ZMT-sonics/ZMTpedlFilter; "
                            "cp a.zmb x/ZMT-sonics/ZMTpedlFilter/DefaultBank; "
                            "export XDG_CONFIG_HOME=$PWD/x";
    EXPECT_EQ(run("programs", own).out.find("Auto Wah"), std::string::npos);
    EXPECT_NE(run("programs --factory", own).out.find("Auto Wah"), std::string::npos);
    EXPECT_EQ(run("render in.wav a.flac --factory", own).status, 0);
    EXPECT_EQ(run("render in.wav b.flac").status, 0);
    EXPECT_EQ(readText(folder_ / "a.flac"), readText(folder_ / "b.flac"));
}

TEST_F(CommandTest, WhatIsNoPlugInIsRefusedWithTheReason) {
    using Row = std::array<const char*, 2>;
    for (const auto& [fault, says] :
         {Row{"null", "its entry gives no effect"}, Row{"magic", "wrong magic number"},
          Row{"functions", "lacks functions"}, Row{"counts", "impossible numbers"},
          Row{"replacing", "cannot replace its output"}}) {
        SCOPED_TRACE(fault);
        expectRefused(run("programs --plugin $STUB", kLeaksOfOthers + " STUB_FAULT=" + fault), 1,
                      says);
    }
}

TEST_F(CommandTest, AnInterruptedOrCrashedRenderLeavesWhatWasThere) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGSEGV}) {
#if defined(__SANITIZE_ADDRESS__)
        if (signal == SIGSEGV)
            continue; // the sanitizer's own handler reports it
#endif
        SCOPED_TRACE(signal);
        // The stub sends the signal to its own process in the third of many blocks.
        const std::string set = " --plugin $STUB --set Signal=0 1=" + std::to_string(signal / 64.0);
        expectRefused(run("render in.wav kept --block 64" + set), 128 + signal,
                      signal == SIGSEGV ? "crashed, most likely inside the plug-in"
                                        : "interrupted; nothing was written");
    }
}

TEST_F(CommandTest, WhatIsLikelyNotMeantIsToldAndWithStrictRefused) {
    writeSound(folder_ / "loud.wav", 2, 48000, 4800, [](long, int) { return 2.0; });
    writeText(folder_ / "cut.wav", readText(folder_ / "in.wav").substr(0, 9000));
    writeText(folder_ / "short.csv", "0,0\n0.05,1\n");
    writeText(folder_ / "song.mid", midiFile(0, 480, {std::string("\0\xB2\x4A\x40", 4)}));
    names_ = folder_.names();
    using Row = std::array<const char*, 2>;
    for (const auto& [arguments, says] :
         {Row{"loud.wav", "loud.wav: peaks at +6.0 dBFS, beyond full scale"},
          Row{"cut.wav", "bytes shorter than its head says"},
          Row{"in.wav --automate 0=short.csv", "0=short.csv: ends at 0.05 s, the sound at 0.10 s"},
          Row{"in.wav --midi song.mid --link 21=1", "a controller that it has (74); --link"}}) {
        SCOPED_TRACE(arguments);
        expectRefused(run("render " + std::string(arguments) + " kept --strict"), 1, says);
        EXPECT_NE(run("render " + std::string(arguments) + " /dev/null").error.find(says),
                  std::string::npos);
    }
    EXPECT_EQ(run("render in.wav kept --strict --midi song.mid --link 21=74").error, "");
}

TEST_F(CommandTest, WhatAKilledRenderLeavesIsGoneAfterTheNext) {
    const std::string set = " --plugin $STUB --set Signal=0 1=" + std::to_string(SIGKILL / 64.0);
    EXPECT_EQ(run("render in.wav kept --block 64" + set).status, 128 + SIGKILL);
    EXPECT_EQ(readText(folder_ / "kept"), "precious");
    writeText(folder_ / ".kept.0123456789abcdef.new", "of one on a simpler file system");
    EXPECT_EQ(run("render in.wav kept").status, 0);
    EXPECT_EQ(folder_.names(), names_);
}

TEST_F(CommandTest, ASignalThatIsIgnoredFromTheStartDoesNotEndARender) {
    const std::string set = " --plugin $STUB --set Signal=0 1=" + std::to_string(SIGHUP / 64.0);
    const Outcome nohup = run("render in.wav out.wav --block 64" + set, "trap '' HUP");
    EXPECT_EQ(nohup.status, 0) << nohup.error;
    EXPECT_EQ(nohup.error, "");
}

TEST_F(CommandTest, WhatThePlugInTellsIsShown) {
    const Outcome rendered =
        run("render --set 'Gain=50 %' Output=0 --set 1=0 in.wav out.wav --plugin $STUB");
    EXPECT_TRUE(
        rendered.out.starts_with("out.wav: 0.10 s at 48000 Hz, peak -12.0 dBFS, rendered in"))
        << rendered.out << rendered.error;
    EXPECT_EQ(run("info --plugin $STUB --verbose").error, "stub: made\nstub: gone\n");
    EXPECT_EQ(run("programs --plugin $STUB").out, "slot  name\n   0  Soft\n   1  Loud\n");
    EXPECT_NE(run("params --program Loud --plugin $STUB")
                  .out.find("\n    0  Gain               1.0000  100.0 %\n"),
              std::string::npos);
    const auto info = nlohmann::json::parse(run("info --json --plugin $STUB").out);
    EXPECT_EQ(info["uniqueId"], "Stub");
    EXPECT_EQ(info["name"], "St\xC3\xBC! ") << "not UTF-8, with a control character";
    EXPECT_EQ(info["vendor"], "2400 1 44100") << "what the host answered inside the entry";
    EXPECT_EQ(info["flags"]["canDoubleReplacing"], true);
    EXPECT_EQ(info["programs"][1]["name"], "Loud");
    EXPECT_EQ(info["parameters"][0]["display"], "50.0");
}

TEST_F(CommandTest, OtherMakersPlugInsAreListedAndRenderedWithoutAHitch) {
    std::error_code error;
    const std::filesystem::directory_iterator plugins("/usr/lib/vst", error);
    if (error)
        GTEST_SKIP() << "no /usr/lib/vst: install dpf-plugins-vst and zynaddsubfx-vst";
    int effects = 0;
    for (const auto& entry : plugins) {
        if (entry.path().extension() != ".so")
            continue;
        SCOPED_TRACE(entry.path());
        const std::string plugin = " --plugin " + entry.path().string();
        const auto info = nlohmann::json::parse(run("info --json" + plugin, kLeaksOfOthers).out);
        EXPECT_NE(info["name"], "");
        if (info["inputs"].empty() || info["outputs"].empty())
            continue; // an instrument: silent without notes
        ++effects;
        const Outcome rendered = run("render in.wav out.wav" + plugin, kLeaksOfOthers);
        EXPECT_EQ(rendered.status, 0);
        EXPECT_EQ(rendered.error, "") << "such as samples that are not finite";
    }
    EXPECT_GE(effects, 5);
}

TEST_F(CommandTest, HelpFitsATerminalWithExamplesThatAShellReads) {
    for (const std::string command :
         {"", "render", "show", "programs", "params", "info", "convert", "diff"}) {
        std::istringstream lines(run(command + " --help", "unset COLUMNS").out);
        int examples = 0;
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LT(line.size(), 80U) << command << ": " << line;
            EXPECT_EQ(std::count(line.begin(), line.end(), '"') % 2, 0)
                << "broken within quotes: " << line;
            examples += line.starts_with("  $ zmt-pedlfilter " + command) ? 1 : 0;
        }
        EXPECT_GE(examples, 2) << command;
    }
    const std::string onFullDisk = "! '" PEDL_COMMAND "' render --help 2>/dev/null >/dev/full";
    EXPECT_EQ(run("--help", onFullDisk).status, 0);
}

TEST_F(CommandTest, APluginIsFoundByItsNameWhereHostsLook) {
    const std::string place =
        "mkdir -p home/.vst listed; cp $STUB home/.vst/Named.so; cp $STUB listed/Other.so; "
        "export HOME=$PWD/home VST_PATH=/nonexistent:$PWD/listed";
    EXPECT_NE(run("programs --plugin Named", place).out.find("Loud"), std::string::npos);
    EXPECT_NE(run("programs --plugin Other.so", place).out.find("Loud"), std::string::npos);
    const Outcome missing = run("programs --plugin Neither", place);
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.error.find("/home/.vst/Neither.so, /usr/local/lib/vst/"), std::string::npos);
}

TEST_F(CommandTest, EveryKindOfFileGoesThroughTextAndBackWithoutADifference) {
    const std::string help = run("convert --help").out;
    for (const DocumentKind kind : kDocumentKinds) {
        const std::string file = "a" + kindEnding(kind);
        EXPECT_EQ(run("convert " + file + " text.JSON").status, 0);
        const Outcome back = run("convert text.JSON b" + file);
        EXPECT_TRUE(back.out.starts_with("b" + file + ": ")) << back.error;
        EXPECT_EQ(readText(folder_ / ("b" + file)), readText(folder_ / file));
        EXPECT_EQ(run("diff text.JSON a.chunk").out,
                  kind == DocumentKind::Bank ? "MIDI links: only in the second\n" : "");
        EXPECT_NE(help.find("\n  " + kindEnding(kind) + ' '), std::string::npos);
    }
    EXPECT_EQ(run("convert a.chunk -").out, readText(folder_ / "text.JSON"));
}

TEST_F(CommandTest, AProgramOfAFileIsChosenByNameOrSlot) {
    writeText(folder_ / "f.chunk", textOf(storedForm(factoryDocument())));
    EXPECT_NE(run("convert f.chunk - --program 'auto w'")
                  .out.find("\"program\": {\n    \"name\": \"Auto Wah\""),
              std::string::npos);
    EXPECT_EQ(run("convert f.chunk g.chunk --program 119").status, 0);
    const Outcome diff = run("diff f.chunk g.chunk");
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out, "current program: 0 \"Default\" -> 119 \"Manual HPF 24dB/oct\"\n");
}

TEST_F(CommandTest, OneProgramOfABankIsReplacedComparedAndFound) {
    writeText(folder_ / "f.zmb", textOf(storedForm(as(DocumentKind::Bank, factoryDocument()))));
    writeText(folder_ / "wah.json", R"({"format": "ZMT pedlFilter", "version": 1, "kind": "program",
        "program": {"name": "My Wah", "parameters": {"Filter Cutoff": "1.2 kHz"}}})");
    EXPECT_EQ(run("convert f.zmb g.zmb --slot 12=wah.json").status, 0);
    const std::string differs = "\"  Filter Cutoff: 1002 -> 1200\n";
    EXPECT_NE(run("diff f.zmb g.zmb").out.find(" -> 1200\n"), std::string::npos);
    const Outcome within = run("diff g.zmb --program Default 12");
    EXPECT_EQ(within.status, 1);
    EXPECT_EQ(within.out, "\"Default\"  name: \"Default\" -> \"My Wah\"\n\"Default" + differs);
    EXPECT_EQ(run("programs --bank g.zmb --search 'my w'").out, "slot  name\n  12  My Wah\n");
    EXPECT_NE(run("params --bank g.zmb --program 12").out.find("  1200 Hz\n"), std::string::npos);
    EXPECT_NE(run("params --preset wah.json").out.find("  1200 Hz\n"), std::string::npos);
}

TEST_F(CommandTest, ABankIsTakenApartAndJoinedAgain) {
    writeText(folder_ / "f.zmb", textOf(storedForm(as(DocumentKind::Bank, factoryDocument()))));
    for (const std::string format : {"zmt", "json"}) {
        EXPECT_EQ(run("convert f.zmb --to apart --format " + format).out, "apart: 140 programs\n");
        EXPECT_EQ(run("convert apart/*." + format + " joined.zmb").status, 0);
        EXPECT_EQ(readText(folder_ / "joined.zmb"), readText(folder_ / "f.zmb"));
    }
    EXPECT_TRUE(std::filesystem::exists(folder_ / "apart/117 Manual LPF 24dB-oct.zmt"));
    EXPECT_EQ(run("diff - f.zmb < joined.zmb").status, 0);
}

TEST_F(CommandTest, RepairsAreWarnedAboutAndLongListsCut) {
    std::string bank = readText(folder_ / "a.zmb");
    for (std::size_t slot = 0; slot < 30; ++slot) // the first value of each becomes a negative one
        bank[41 + 1960 * slot + 168 + 27] = '\xBF';
    writeText(folder_ / "damaged.zmb", bank);
    const std::string warnings = run("convert damaged.zmb whole.json").error;
    EXPECT_NE(warnings.find("damaged.zmb: Invalid parameter 0 value -"), std::string::npos);
    EXPECT_TRUE(warnings.ends_with("warning: damaged.zmb: and 10 more\n")) << warnings;
}

} // namespace
} // namespace pedl
