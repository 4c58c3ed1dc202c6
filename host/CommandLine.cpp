#include "host/CommandLine.h"

#include "convert/Conversion.h"
#include "foundation/text/NameMatch.h"
#include "foundation/text/PrintableText.h"
#include "host/CommandOutput.h"
#include "host/HelpExamples.h"
#include "host/HelpFormatter.h"
#include "host/HelpTexts.h"
#include "host/Messages.h"
#include "host/StoredFiles.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <utility>

namespace pedl {

namespace {

/// After --set, --link, --automate and --slot, further NAME=VALUE words belong to the same option.
/// Written out one by one here: a list option would swallow IN and OUT as well.
std::vector<std::string> spreadLists(int count, char** words) {
    std::vector<std::string> spread;
    std::string list;
    bool hasItem = false;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const bool isItem = word.find('=') != std::string::npos && !word.starts_with("-");
        if (word == "--set" || word == "--link" || word == "--automate" || word == "--slot") {
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

/// An option that takes one text or, with a list, may be given again and again.
template <typename Target>
void addTextOption(CLI::App& command, const char* name, Target& target, const char* type,
                   const char* description) {
    command.add_option(name, target, description)->type_name(type)->allow_extra_args(false);
}

/// What is read and, unless it all goes into a folder, written last.
void addFiles(CLI::App& command, CommandLine& line, const char* description) {
    command.add_option("FILE", line.files, description)->required()->type_name("");
    addTextOption(command, "--to", line.folder, "FOLDER",
                  "Folder for what is written; every FILE is read then");
}

void addFile(CLI::App& command, const char* name, std::string& target, const char* description) {
    command.add_option(name, target, description)->required()->type_name("");
}

void addPluginOption(CLI::App& command, CommandLine& line) {
    command
        .add_option("--plugin", line.plugin,
                    "VST 2.4 library to load instead of ZMTpedlFilter.so: its path, or its "
                    "name where hosts look for plug-ins")
        ->type_name("PATH|NAME");
    command.add_flag("--verbose", line.isVerbose,
                     "Let through what the plug-in writes to standard error");
}

CLI::App* addListing(CLI::App& app, const char* name, const char* description, CommandLine& line) {
    CLI::App* const command = app.add_subcommand(name, description);
    addPluginOption(*command, line);
    command->add_flag("--json", line.isJson, "Write JSON instead of columns");
    return command;
}

void addProgramOption(CLI::App& command, CommandLine& line) {
    addTextOption(command, "--program", line.program, "NAME|SLOT",
                  "Program to select first, by name or slot from 0");
}

void addBankOption(CLI::App& command, CommandLine& line) {
    addTextOption(command, storedFileOption(DocumentKind::Bank), line.bank, "FILE",
                  "Bank to load: a bank file, a host chunk or the JSON of one");
}

void addPresetOption(CLI::App& command, CommandLine& line) {
    addTextOption(command, storedFileOption(DocumentKind::Program), line.preset, "FILE",
                  "Program to load into the slot: a program file or the JSON of one");
}

void addFactoryFlag(CLI::App& command, CommandLine& line) {
    command.add_flag("--factory", line.isFactory,
                     "Begin with the factory's programs, whatever defaults and memories the user "
                     "has stored");
}

/// What the plug-in is to hold, in the order in which it takes effect.
void addStateOptions(CLI::App& command, CommandLine& line) {
    const auto add = [&command](const char* name, auto& target, const char* type,
                                const char* description) {
        addTextOption(command, name, target, type, description);
    };
    addBankOption(command, line);
    addProgramOption(command, line);
    addPresetOption(command, line);
    add(storedFileOption(DocumentKind::MidiSettings), line.midiSettings, "FILE",
        "MIDI links to load: a MIDI-settings file or the JSON of one");
    addFactoryFlag(command, line);
    add("--set", line.settings, "PARAMETER=VALUE",
        "Values to set, in this order, after the program");
    add("--link", line.links, "PARAMETER=CONTROLLER",
        "MIDI controllers, 0 to 119, that move parameters of ZMT pedlFilter");
}

CLI::App* addRender(CLI::App& app, CommandLine& line) {
    CLI::App* const command = app.add_subcommand("render", "Process a sound file into another");
    const auto add = [command](const char* name, auto& target, const char* type,
                               const char* description) {
        addTextOption(*command, name, target, type, description);
    };
    addFiles(*command, line,
             "Sound file to read, then the one to write; its ending names the format. \"-\" is "
             "standard input or output");
    add("--format", line.format, "FORMAT",
        "Format to write, whatever the ending says: wav, flac, aiff, ogg, caf, w64, rf64");
    add("--bits", line.bits, "16|24|32f", "Integers or floats to write, where the format has them");
    command->add_flag("--no-clobber", line.keepsExisting, "Leave files that exist as they are");
    addStateOptions(*command, line);
    add("--automate", line.automations, "PARAMETER=CURVE.csv", "Curves for parameters to follow");
    add("--midi", line.midi, "FILE.mid",
        "MIDI file whose messages, tempo and time signature the plug-in gets");
    add("--tempo", line.tempo, "BPM",
        "Song tempo in beats per minute, 1 to 999, until the MIDI file has one (120)");
    add("--block", line.block, "N", "Frames in a block, 1 to 65536 (512)");
    add("--tail", line.tail, "SECONDS|auto",
        "Silence to process after the end, up to 3600 s (0); auto: until none sounds, 60 s at "
        "most");
    command->add_flag("--strict", line.isStrict, "Take warnings for errors: OUT stays as it is");
    command->add_flag("--quiet", line.isQuiet, "Tell of errors and warnings only");
    command->add_flag("--double", line.isDouble, "Process 64-bit instead of 32-bit samples");
    addPluginOption(*command, line);
    command->footer(kRenderNotes);
    return command;
}

const char* convertedInto(DocumentKind kind) {
    switch (kind) {
    case DocumentKind::Program:
        return "the current one, or that of --program";
    case DocumentKind::Bank:
        return "a program goes into slot 0, the other slots hold the factory programs";
    case DocumentKind::MidiSettings:
        return "the links and the channel of a host chunk; banks and programs have none";
    case DocumentKind::Chunk:
        break;
    }
    return "what IN lacks is as in a fresh instance: programs, links or both";
}

/// A line of the table of endings.
std::string endingLine(std::string_view ending, std::string_view form, const char* meaning) {
    constexpr std::size_t kFormColumn = 10;
    std::string line = "  " + std::string(ending);
    line.resize(kFormColumn, ' ');
    return line.append(form) + ": " + meaning + '\n';
}

CLI::App* addShow(CLI::App& app, CommandLine& line) {
    CLI::App* const command =
        app.add_subcommand("show", "Open a plug-in's editor in a window, or picture it");
    addStateOptions(*command, line);
    addTextOption(*command, "--play", line.play, "FILE",
                  "Sound file that runs through the plug-in meanwhile, again and again");
    addTextOption(*command, "--screenshot", line.screenshot, "FILE.png",
                  "Picture of the editor to write; the window closes then");
    addTextOption(*command, "--scale", line.scale, "N",
                  "Pixels of the screen for one of the editor's, 0.5 to 4");
    addTextOption(*command, "--seconds", line.seconds, "N",
                  "Close after that time, or take the picture then");
    addPluginOption(*command, line);
    command->footer(kShowNotes);
    return command;
}

std::string convertNotes() {
    std::string notes = kConvertStart;
    for (const DocumentKind kind : kDocumentKinds)
        notes += endingLine(kindEnding(kind), kindName(kind), convertedInto(kind));
    notes += endingLine(kTextEnding, "text",
                        "IN as it is, or its one program of --program; \"-\" is standard output");
    return notes + kConvertEnd;
}

CLI::App* addConvert(CLI::App& app, CommandLine& line) {
    CLI::App* const command = app.add_subcommand(
        "convert", "Turn stored programs, banks, MIDI settings and host chunks into one another, "
                   "or into text and back");
    addFiles(
        *command, line,
        "File to read, then the one to write; its ending names the form. Several programs that "
        "are read make a bank. \"-\" is standard input or output");
    addTextOption(*command, "--format", line.format, "zmt|json",
                  "Form of the programs that --to writes (zmt)");
    addTextOption(*command, "--program", line.program, "NAME|SLOT",
                  "Program to take, by name or slot from 0");
    addTextOption(*command, "--slot", line.slots, "SLOT=FILE",
                  "Program to put into a slot of the bank or host chunk, again and again");
    command->footer(convertNotes());
    return command;
}

CLI::App* addDiff(CLI::App& app, CommandLine& line) {
    CLI::App* const command =
        app.add_subcommand("diff", "Show what differs between two stored files");
    addFile(*command, "A", line.in, "File to begin with");
    command->add_option("B", line.out, "File to compare it with")->type_name("");
    command->add_option("--program", line.compared, "Two programs of A to compare instead of B")
        ->expected(2)
        ->type_name("NAME|SLOT NAME|SLOT");
    command->footer(kDiffNotes);
    return command;
}

constexpr const char* kAuditionNotes = R"(
FOLDER gets index.html, on which every program is heard dry and wet and seen: its spectrogram with
the cut-off and the gain that move it. The page searches, filters by family and is played from the
keyboard; it needs nothing from elsewhere.

Without --material each factory program plays on the material that it is made for, and a program of
your own on three of these. Sounds are cut after 30 seconds. The host's tempo is 120.)";

CLI::App* addAudition(CLI::App& app, CommandLine& line) {
    CLI::App* const command = app.add_subcommand(
        "audition", "Render programs of ZMT pedlFilter into a page to hear and see them on");
    command->add_option("--material", line.materials, "Sound files to play, each on every program")
        ->type_name("FILE");
    addTextOption(*command, storedFileOption(DocumentKind::Bank), line.bank, "FILE",
                  "Programs to take: anything that convert reads and has programs");
    command->add_option("--program", line.programs, "Programs, by name or slot from 0 (all)")
        ->type_name("NAME|SLOT");
    addTextOption(*command, "--out", line.out, "FOLDER", "Where the page goes (audition)");
    command->footer(kAuditionNotes);
    return command;
}

/// One of them, to be asked whether it was named.
struct SubCommand {
    CLI::App* command;
    Action action;
};

std::vector<SubCommand> addSubCommands(CLI::App& app, CommandLine& line) {
    std::vector<SubCommand> all; // in the order of the help
    all.push_back({addRender(app, line), Action::Render});
    all.push_back({addShow(app, line), Action::Show});
    CLI::App* const programs =
        addListing(app, "programs", "List the programs by slot and name", line);
    addBankOption(*programs, line);
    addFactoryFlag(*programs, line);
    addTextOption(*programs, "--search", line.search, "TEXT",
                  "Only those with that in their name, in upper or lower case");
    all.push_back({programs, Action::Programs});
    CLI::App* const parameters =
        addListing(app, "params", "List the parameters with their names, values and texts", line);
    addBankOption(*parameters, line);
    addProgramOption(*parameters, line);
    addPresetOption(*parameters, line);
    addFactoryFlag(*parameters, line);
    all.push_back({parameters, Action::Parameters});
    all.push_back({addListing(app, "info", "Show everything that the plug-in declares", line),
                   Action::Information});
    all.push_back({addConvert(app, line), Action::Convert});
    all.push_back({addDiff(app, line), Action::Diff});
    all.push_back({addAudition(app, line), Action::Audition});
    for (const SubCommand& each : all) {
        const std::string notes = each.command->get_footer();
        each.command->footer(notes + (notes.empty() ? "" : "\n") + examplesOf(each.action));
    }
    return all;
}

std::string offered(const std::string& near) {
    return near.empty() ? "" : "; did you mean " + near + "?";
}

/// The first word that no command or option answers to, with the nearest one; empty where all do.
std::string strangeWord(const CLI::App& app, const std::vector<std::string>& words) {
    if (words.empty())
        return {};
    const CLI::App* command = nullptr;
    std::vector<std::string> names;
    for (const CLI::App* const each : app.get_subcommands({})) {
        names.push_back(each->get_name());
        if (names.back() == words.front())
            command = each;
    }
    if (command == nullptr && !words.front().starts_with("-")) {
        return "there is no command \"" + words.front() + "\"" +
               offered(nearestWord(lowerCase(words.front()), names));
    }
    const CLI::App& asked = command != nullptr ? *command : app;
    bool isValue = command != nullptr; // the command itself
    for (const std::string& word : words) {
        const std::string name = word.substr(0, word.find('='));
        const CLI::Option* const option = asked.get_option_no_throw(name);
        if (!isValue && option == nullptr && name.size() > 1 && name.front() == '-') {
            names.clear();
            for (const CLI::Option* const each : asked.get_options())
                if (!each->get_lnames().empty())
                    names.push_back("--" + each->get_lnames().front());
            return (command != nullptr ? words.front() + ": there" : "there") + " is no option " +
                   name + offered(nearestWord(lowerCase(name), names));
        }
        isValue = !isValue && option != nullptr && option->get_items_expected_max() > 0 &&
                  name.front() == '-' && name.size() == word.size();
    }
    return {};
}

/// What a command line that asks for nothing ends with: help and version are output like any other.
int statusOf(const CLI::App& app, const CLI::ParseError& error) {
    if (app.exit(error) != 0)
        return kWrongUse;
    if (std::cout.flush())
        return 0;
    return fail("standard output cannot be written");
}

} // namespace

std::variant<CommandLine, int> readCommandLine(int count, char** words) {
    CommandLine line;
    CLI::App app("Plays sound files through ZMT pedlFilter, or another VST 2.4 effect, shows its "
                 "editor and what it offers, converts and compares its files.",
                 "zmt-pedlfilter");
    app.set_version_flag("--version", "zmt-pedlfilter " PEDL_VERSION);
    app.formatter(std::make_shared<HelpFormatter>());
    app.require_subcommand(1);
    app.footer(kExamples);
    const std::vector<std::string> spread = spreadLists(count, words);
    app.failure_message([&](const CLI::App*, const CLI::Error& error) {
        const std::string strange = strangeWord(app, spread);
        return "zmt-pedlfilter: " + printableText(strange.empty() ? error.what() : strange) +
               " (--help tells more)\n";
    });
    const std::vector<SubCommand> subCommands = addSubCommands(app, line);
    try {
        std::vector<std::string> arguments = spread;
        std::reverse(arguments.begin(), arguments.end()); // the parser takes them from the back
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return statusOf(app, error);
    }
    for (const SubCommand& named : subCommands)
        if (named.command->parsed())
            line.action = named.action;
    return line;
}

} // namespace pedl
