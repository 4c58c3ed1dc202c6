// The command: reads what the user wants, calls the host library, writes what came of it.

#include "host/FileCommands.h"
#include "host/Interrupt.h"
#include "host/Listings.h"
#include "host/Messages.h"
#include "host/PluginLocator.h"
#include "host/RenderCommand.h"
#include "host/Selection.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace pedl;

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

struct Range {
    double lowest;
    double highest;
    const char* meaning;
};
constexpr Range kTempoRange{1.0, 999.0, "beats per minute"};
constexpr Range kBlockRange{1.0, 65536.0, "whole frames"};
constexpr Range kTailRange{0.0, 3600.0, "seconds"};

/// What stands on the command line, as text.
struct Options {
    std::string in, out, plugin, program, bank, preset, midiSettings, midi,
        tempo = "120", block = "512", tail = "0";
    std::vector<std::string> settings, links, automations;
    bool isDouble = false;
    bool isJson = false;
    bool isVerbose = false;
};

int fail(const std::string& text, int status = kFailed) {
    std::fprintf(messages(), "zmt-pedlfilter: %s\n", text.c_str());
    return status;
}

Result<double> numberWithin(const std::string& option, const std::string& text, Range range) {
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size();
    if (isNumber && number >= range.lowest && number <= range.highest)
        return number;
    std::array<char, 128> expected{};
    std::snprintf(expected.data(), expected.size(), "from %g to %.0f %s", range.lowest,
                  range.highest, range.meaning);
    return Problem{option + ": \"" + text + "\" is not a number " + expected.data()};
}

Result<std::filesystem::path> pluginFor(const Options& options) {
    if (!options.plugin.empty())
        return std::filesystem::path(options.plugin);
    return findPlugin();
}

/// Writes to standard output; a full disk or a closed pipe there is a failure too.
int print(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0)
        return fail("standard output cannot be written");
    return 0;
}

std::string levelText(double peak) {
    if (peak == 0.0)
        return "silent";
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "peak %.1f dBFS", 20.0 * std::log10(peak));
    return text.data();
}

int report(const Options& options, const RenderReport& done) {
    for (const std::string& warning : done.warnings)
        std::fprintf(messages(), "zmt-pedlfilter: warning: %s\n", warning.c_str());
    if (done.framesMissing > 0)
        std::fprintf(messages(), "zmt-pedlfilter: warning: %s: damaged, ends %.2f s early\n",
                     options.in.c_str(),
                     static_cast<double>(done.framesMissing) / done.sampleRateHz);
    if (done.samplesNotFinite > 0)
        std::fprintf(messages(), "zmt-pedlfilter: warning: %lld samples are not finite numbers\n",
                     static_cast<long long>(done.samplesNotFinite));
    if (done.samplesCut > 0)
        std::fprintf(
            messages(),
            "zmt-pedlfilter: warning: %lld samples were beyond full scale and were cut off;"
            " .wav keeps them\n",
            static_cast<long long>(done.samplesCut));
    std::array<char, 256> figures{};
    std::snprintf(figures.data(), figures.size(),
                  ": %.2f s at %d Hz, %s, rendered in %.3f s: %.1f times realtime"
                  " (%.1f in the plug-in)\n",
                  done.audioSeconds(), done.sampleRateHz, levelText(done.peak).c_str(),
                  done.wallSeconds, done.audioSeconds() / done.wallSeconds,
                  done.audioSeconds() / done.pluginSeconds);
    return print(options.out + figures.data());
}

int runRender(const Options& options) {
    RenderRequest request;
    request.in = options.in;
    request.out = options.out;
    request.settings = options.settings;
    request.links = options.links;
    request.automations = options.automations;
    request.precision = options.isDouble ? Precision::Double : Precision::Float;
    const auto give = [](const std::string& text, auto& wanted) {
        if (!text.empty())
            wanted = text;
    };
    give(options.bank, request.bank);
    give(options.program, request.program);
    give(options.preset, request.preset);
    give(options.midiSettings, request.midiSettings);
    give(options.midi, request.midi);

    const Result<double> tempo = numberWithin("--tempo", options.tempo, kTempoRange);
    const Result<double> tail = numberWithin("--tail", options.tail, kTailRange);
    Result<double> block = numberWithin("--block", options.block, kBlockRange);
    if (block.ok() && block.value() != std::floor(block.value()))
        block = Problem{"--block: \"" + options.block + "\" is not a whole number of frames"};
    for (const Result<double>* number : {&tempo, &tail, static_cast<const Result<double>*>(&block)})
        if (!number->ok())
            return fail(number->problem().text, kWrongUse);
    request.tempoBpm = tempo.value();
    request.tailSeconds = tail.value();
    request.blockFrames = static_cast<VstInt32>(block.value());

    const Result<std::filesystem::path> plugin = pluginFor(options);
    if (!plugin.ok())
        return fail(plugin.problem().text);
    request.plugin = plugin.value();

    const PluginSilence silence(options.isVerbose);
    const Result<RenderReport> rendered = render(request);
    if (!rendered.ok()) {
        const int signal = Interrupt::signalNumber();
        return fail(rendered.problem().text, signal != 0 ? 128 + signal : kFailed);
    }
    return report(options, rendered.value());
}

constexpr std::size_t kMostWarnings = 20;

/// Damage can be long-winded: after the first lines their number will do.
void warn(const std::string& path, const std::vector<std::string>& lines) {
    for (std::size_t i = 0; i < std::min(lines.size(), kMostWarnings); ++i)
        std::fprintf(messages(), "zmt-pedlfilter: warning: %s: %s\n", path.c_str(),
                     lines[i].c_str());
    if (lines.size() > kMostWarnings)
        std::fprintf(messages(), "zmt-pedlfilter: warning: %s: and %zu more\n", path.c_str(),
                     lines.size() - kMostWarnings);
}

int runConvert(const Options& options) {
    ConversionRequest request{options.in, options.out, std::nullopt};
    if (!options.program.empty())
        request.program = options.program;
    const Result<Conversion> conversion = convert(request);
    if (!conversion.ok())
        return fail(conversion.problem().text);
    int status = 0;
    if (options.out == kStandardOutput) {
        status = print(textOf(conversion.value()));
    } else {
        const Result<std::string> written = writeConversion(conversion.value(), options.out);
        status = written.ok() ? print(written.value()) : fail(written.problem().text);
    }
    if (status == 0)
        warn(options.in, conversion.value().warnings);
    return status;
}

/// Statuses as those of diff(1).
int runDiff(const Options& options) {
    constexpr int kSame = 0;
    constexpr int kDifferent = 1;
    constexpr int kTrouble = 2;
    const Result<Document> from = readDocument(options.in);
    const Result<Document> to = readDocument(options.out);
    for (const Result<Document>* read : {&from, &to})
        if (!read->ok())
            return fail(read->problem().text, kTrouble);
    const Result<std::vector<std::string>> lines = differences(from.value(), to.value());
    if (!lines.ok())
        return fail(lines.problem().text, kTrouble);
    warn(options.in, from.value().warnings);
    warn(options.out, to.value().warnings);
    std::string text;
    for (const std::string& line : lines.value())
        text += line + '\n';
    if (print(text) != 0)
        return kTrouble;
    return text.empty() ? kSame : kDifferent;
}

/// Loads the plug-in, selects the program if one is named, and prints what `listing` makes of it.
template <typename Listing> int runListing(const Options& options, const Listing& listing) {
    const Result<std::filesystem::path> path = pluginFor(options);
    if (!path.ok())
        return fail(path.problem().text);
    const PluginSilence silence(options.isVerbose);
    Result<std::unique_ptr<Plugin>> plugin = Plugin::load(path.value());
    if (!plugin.ok())
        return fail(plugin.problem().text);
    if (!options.program.empty())
        if (const Done selected = selectProgram(*plugin.value(), options.program); !selected.ok())
            return fail("--program: " + selected.problem().text);
    const ListingForm form = options.isJson ? ListingForm::Json : ListingForm::Text;
    return print(listing(*plugin.value(), path.value().string(), form));
}

/// After --set, --link and --automate, further PARAMETER=VALUE words belong to the same option.
/// Written out one by one here: a list option would swallow IN and OUT as well.
std::vector<std::string> spreadLists(int count, char** words) {
    std::vector<std::string> spread;
    std::string list;
    bool hasItem = false;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const bool isItem = word.find('=') != std::string::npos && !word.starts_with("-");
        if (word == "--set" || word == "--link" || word == "--automate") {
            list = word;
            hasItem = false;
        } else if (!list.empty() && (isItem || !hasItem)) {
            if (hasItem)
                spread.push_back(list);
            hasItem = true;
        } else {
            list.clear();
        }
        spread.push_back(word);
    }
    return spread;
}

constexpr const char* kExamples = R"(
Examples:
  zmt-pedlfilter render riff.wav out.wav --program "Manual HPF 24dB/oct"
  zmt-pedlfilter render riff.wav out.flac --set "Filter Cutoff=1200" "Filter Slope=24 dB" 20=0.4
  zmt-pedlfilter render pad.wav out.wav --automate "Filter Cutoff=sweep.csv" --block 64 --tail 2
  zmt-pedlfilter render pad.wav out.wav --midi song.mid --link "Filter Cutoff=74" --set LFOsync=hostBPM
  zmt-pedlfilter params --program 5 --json
  zmt-pedlfilter convert bank.zmb bank.json
  zmt-pedlfilter diff old.zmb bank.json)";

constexpr const char* kRenderNotes = R"(
PARAMETER is an index from `zmt-pedlfilter params`, or a name: upper and lower case are alike, and
both the full name ("Filter Cutoff") and its unmistakable beginning will do. VALUE after a name is a
text that the parameter shows ("1200", "24 dB", "off"; the unit may be left out); a number after an
index is the normalised value, 0 to 1.

--bank, --program, --preset, --midi-settings, --set and --link take effect in this order, wherever they
stand, then curves and MIDI. Files are for ZMT pedlFilter alone; `zmt-pedlfilter convert` makes them.

A curve is a text file with lines "seconds,value", values 0 to 1, joined by straight lines; lines
that begin with # and a first line of words are skipped. It is read at the start of every block, so
a smaller --block follows it more closely.

A MIDI file (format 0 or 1) begins with IN. All its channel messages reach the plug-in, each at its
frame; the tempo, the time signature and the place in the song follow it. Blocks are cut where it
has something due, so what MIDI does is independent of --block. Controllers move what they are linked
to, by --link for one. Where the file has no tempo yet, --tempo is the tempo.

IN is mono or stereo at 44100 to 192000 Hz, in any format that libsndfile reads. OUT is stereo: 32-bit
float for .wav (and without an ending), .aiff, .caf, .w64 and .rf64, 24 bits for .flac, Vorbis for
.ogg. OUT appears whole or not at all; an existing file is replaced only by a finished render.)";

void addPluginOption(CLI::App& command, Options& options) {
    command
        .add_option("--plugin", options.plugin,
                    "VST 2.4 library to load instead of ZMTpedlFilter.so")
        ->type_name("PATH");
    command.add_flag("--verbose", options.isVerbose,
                     "Let through what the plug-in writes to standard error");
}

CLI::App* addListing(CLI::App& app, const char* name, const char* description, Options& options) {
    CLI::App* const command = app.add_subcommand(name, description);
    addPluginOption(*command, options);
    command->add_flag("--json", options.isJson, "Write JSON instead of columns");
    return command;
}

void addProgramOption(CLI::App& command, Options& options) {
    command
        .add_option("--program", options.program, "Program to select first, by name or slot from 0")
        ->type_name("NAME|SLOT");
}

CLI::App* addRender(CLI::App& app, Options& options) {
    CLI::App* const command = app.add_subcommand("render", "Process a sound file into another");
    command->add_option("IN", options.in, "Sound file to read")->required()->type_name("");
    command->add_option("OUT", options.out, "Sound file to write; its ending names the format")
        ->required()
        ->type_name("");
    command
        ->add_option("--bank", options.bank,
                     "Bank to load: a bank file, a host chunk or the JSON of one")
        ->type_name("FILE");
    addProgramOption(*command, options);
    command
        ->add_option("--preset", options.preset,
                     "Program to load into the slot: a program file or the JSON of one")
        ->type_name("FILE");
    command
        ->add_option("--midi-settings", options.midiSettings,
                     "MIDI links to load: a MIDI-settings file or the JSON of one")
        ->type_name("FILE");
    command
        ->add_option("--set", options.settings, "Values to set, in this order, after the program")
        ->type_name("PARAMETER=VALUE")
        ->allow_extra_args(false);
    command
        ->add_option("--link", options.links,
                     "MIDI controllers, 0 to 119, that move parameters of ZMT pedlFilter")
        ->type_name("PARAMETER=CONTROLLER")
        ->allow_extra_args(false);
    command->add_option("--automate", options.automations, "Curves for parameters to follow")
        ->type_name("PARAMETER=CURVE.csv")
        ->allow_extra_args(false);
    command
        ->add_option("--midi", options.midi,
                     "MIDI file whose messages, tempo and time signature the plug-in gets")
        ->type_name("FILE.mid");
    command
        ->add_option("--tempo", options.tempo,
                     "Song tempo in beats per minute, 1 to 999, until the MIDI file has one (120)")
        ->type_name("BPM");
    command->add_option("--block", options.block, "Frames in a block, 1 to 65536 (512)")
        ->type_name("N");
    command
        ->add_option("--tail", options.tail, "Silence to process after the end, up to 3600 s (0)")
        ->type_name("SECONDS");
    command->add_flag("--double", options.isDouble, "Process 64-bit instead of 32-bit samples");
    addPluginOption(*command, options);
    command->footer(kRenderNotes);
    return command;
}

constexpr const char* kConvertNotes = R"(
What IN is shows in its contents, whatever it is called: a program, bank or MIDI-settings file, old
ones and those of big-endian machines too, a host chunk, or the text form of one of them. The ending
of OUT says what it becomes:

  .zmt    program        the current one, or that of --program
  .zmb    bank           a program goes into slot 0, the other slots hold the factory programs
  .zmm    MIDI settings  the links and the channel of a host chunk; banks and programs have none
  .chunk  host chunk     what IN lacks is as in a fresh instance: programs, links or both
  .json   text form      of IN as it is, or of the one program of --program; "-" writes it to
                         standard output

MIDI settings hold no programs, so they become .zmm, .chunk or .json only. A bank file that is made
of a host chunk leaves its MIDI links out, with a warning. With a bank or a host chunk as OUT,
--program makes that program the current one.

In the text form a parameter is {"value": 0 to 1, "text": what the plug-in shows}. The value counts:
a text that is not the value's is warned about. Without a value the text is looked up as --set does
it. What is missing is the factory's. OUT is replaced whole or not at all and may be IN itself, which
puts its texts right.)";

constexpr const char* kDiffNotes = R"(
A and B are anything that convert reads. A program is compared with the current one of a bank. Each
line names slot, program and parameter, with both texts; values with the same text are given as
numbers.

Exit status: 0 when there is no difference, 1 when there is, 2 when a file cannot be read, nothing
can be compared or the command line is wrong.)";

CLI::App* addConvert(CLI::App& app, Options& options) {
    CLI::App* const command = app.add_subcommand(
        "convert", "Turn stored programs, banks, MIDI settings and host chunks into one another, "
                   "or into text and back");
    command->add_option("IN", options.in, "File to read")->required()->type_name("");
    command->add_option("OUT", options.out, "File to write; its ending names the form")
        ->required()
        ->type_name("");
    command->add_option("--program", options.program, "Program to take, by name or slot from 0")
        ->type_name("NAME|SLOT");
    command->footer(kConvertNotes);
    return command;
}

CLI::App* addDiff(CLI::App& app, Options& options) {
    CLI::App* const command =
        app.add_subcommand("diff", "Show what differs between two stored files");
    command->add_option("A", options.in, "File to begin with")->required()->type_name("");
    command->add_option("B", options.out, "File to compare it with")->required()->type_name("");
    command->footer(kDiffNotes);
    return command;
}

int runCommand(int count, char** words) {
    Options options;
    CLI::App app("Plays sound files through ZMT pedlFilter, or another VST 2.4 effect, shows what "
                 "the plug-in "
                 "offers, converts and compares its files.",
                 "zmt-pedlfilter");
    app.set_version_flag("--version", "zmt-pedlfilter " PEDL_VERSION);
    app.require_subcommand(1);
    app.footer(kExamples);
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("zmt-pedlfilter: ") + error.what() + " (--help tells more)\n";
    });

    CLI::App* const renderCommand = addRender(app, options);
    CLI::App* const programs =
        addListing(app, "programs", "List the programs by slot and name", options);
    CLI::App* const params = addListing(
        app, "params", "List the parameters with their names, values and texts", options);
    addProgramOption(*params, options);
    addListing(app, "info", "Show everything that the plug-in declares", options);
    CLI::App* const convertCommand = addConvert(app, options);
    CLI::App* const diffCommand = addDiff(app, options);

    try {
        std::vector<std::string> arguments = spreadLists(count, words);
        std::reverse(arguments.begin(), arguments.end()); // the parser takes them from the back
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kWrongUse;
    }

    if (renderCommand->parsed())
        return runRender(options);
    if (convertCommand->parsed())
        return runConvert(options);
    if (diffCommand->parsed())
        return runDiff(options);
    if (programs->parsed())
        return runListing(options, [](Plugin& plugin, const std::string&, ListingForm form) {
            return programListing(plugin, form);
        });
    if (params->parsed())
        return runListing(options, [](Plugin& plugin, const std::string&, ListingForm form) {
            return parameterListing(plugin, form);
        });
    return runListing(options, infoListing);
}

} // namespace

int main(int count, char** words) {
    try {
        return runCommand(count, words);
    } catch (...) {
        // Libraries of others throw when memory ends; everything else was answered before.
        std::fputs("zmt-pedlfilter: not enough memory\n", stderr);
        return kFailed;
    }
}
